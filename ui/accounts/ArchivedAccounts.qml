import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// Removed accounts, while they can be restored.
ArchivePage {
    id: root

    required property AccountsStore store

    actor: store
    backText: "Back to accounts"
    title: "Archived accounts"
    summary: "Removed accounts wait here for 30 days with their sign-in, so Restore brings them back as they were."
    countText: store.archivedCountText
    resource: store.archived
    view.skeletonTable: table
    view.emptyText: "Removed accounts wait here for 30 days."
    view.errorTitle: "Couldn’t load archived accounts"
    onBack: store.showArchived = false

    function focusTable() {
        table.focusRows();
    }

    PagedTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Archived accounts"
        name: "accounts-archive"
        list: root.store.archived
        sortKey: root.store.archivedSortKey
        sortDescending: root.store.archivedSortDescending
        busyKeys: root.store.busyIds
        columns: [
            OrvColumn { id: accountColumn; key: "account"; title: "Account"; fill: true; sortable: true; minimumWidth: 200 },
            OrvColumn { id: providerColumn; key: "provider"; title: "Provider"; preferredWidth: 140; sortable: true },
            OrvColumn { id: removedColumn; key: "removed"; title: "Removed"; preferredWidth: 104; sortable: true },
            OrvColumn { id: goneColumn; key: "gone"; title: "Goes for good"; preferredWidth: 112; sortable: true },
            OrvColumn { id: actionsColumn; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 148; resizable: false }
        ]
        delegate: OrvTableRow {
            id: row

            required property string account
            required property string name
            required property list<string> tags
            required property string provider
            required property string removedText
            required property string goneText

            label: account + ", goes for good " + goneText

            AccountNameCell { column: accountColumn; address: row.account; name: row.name; tags: row.tags }
            OrvTextCell { column: providerColumn; text: row.provider; color: Theme.text2 }
            OrvTextCell { column: removedColumn; text: row.removedText; color: Theme.text2 }
            OrvTextCell { column: goneColumn; text: row.goneText; color: Theme.text2 }

            RestoreCell { row: row; actor: root.store; column: actionsColumn; name: row.account }
            RowMenuCell { row: row; column: actionsColumn; name: row.account }
        }
        onSortRequested: (key, descending) => root.store.sortArchived(key, descending)
        onOpened: key => openMenuAtRow(key)
        onDeleteRequested: key => root.store.act("delete", key)
        onMenuRequested: (key, row, x, y) => root.openMenu(key, row, x, y)

        // A removed account has no page: Enter offers what can be done instead.
        function openMenuAtRow(key: string) {
            root.openMenu(key, itemOf(key), 24, rowHeight);
        }
    }
}
