import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// The table of the workspace's accounts.
PagedTable {
    id: root

    required property AccountsStore store

    title: "Accounts"
    name: "accounts"
    list: store.list
    selection: store.selection
    tickable: store.canWrite
    selectAllText: "Select all accounts"
    busyKeys: store.busyIds
    sortKey: store.sortKey
    sortDescending: store.sortDescending
    columns: [
        OrvColumn { id: accountCells; key: "account"; title: "Account"; fill: true; sortable: true; minimumWidth: 260 },
        OrvColumn { id: providerCells; key: "provider"; title: "Provider"; preferredWidth: 140; sortable: true },
        OrvColumn { id: statusCells; key: "status"; title: "Status"; preferredWidth: 92; sortable: true },
        OrvColumn { id: sentCells; key: "sent"; title: "Sent today"; preferredWidth: 118; sortable: true },
        OrvColumn { id: warmupCells; key: "warmup"; title: "Warm-up"; preferredWidth: 108; sortable: true; yields: 1 },
        OrvColumn { id: healthCells; key: "health"; title: "Health"; preferredWidth: 64; sortable: true },
        OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
    ]
    delegate: AccountRow {
        accountColumn: accountCells
        providerColumn: providerCells
        statusColumn: statusCells
        sentColumn: sentCells
        warmupColumn: warmupCells
        healthColumn: healthCells
        actionsColumn: actionsCells
    }

    onSortRequested: (key, descending) => store.sort(key, descending)
    onOpened: key => store.open(key)
    onDeleteRequested: key => store.act("delete", key)
}
