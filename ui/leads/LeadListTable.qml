import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The table of the workspace's lists.
PagedTable {
    id: root

    required property LeadLists store

    title: "Lists"
    name: "lead-lists"
    rowHeight: 52
    list: store.list
    busyKeys: store.busyIds
    sortKey: store.sortKey
    sortDescending: store.sortDescending
    columns: [
        OrvColumn { id: listCells; key: "list"; title: "List"; fill: true; sortable: true; minimumWidth: 220 },
        OrvColumn { id: leadsCells; key: "leads"; title: "Leads"; preferredWidth: 84; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: makerCells; key: "maker"; title: "Created by"; preferredWidth: 128; sortable: true; yields: 1 },
        OrvColumn { id: updatedCells; key: "updated"; title: "Updated"; preferredWidth: 112; sortable: true },
        OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 36; resizable: false }
    ]
    delegate: OrvTableRow {
        id: row

        required property string name
        required property string numberText
        required property string description
        required property string leadsText
        required property string makerText
        required property string updatedText
        required property bool isRecent

        label: name + ", " + leadsText + " leads"

        LeadListNameCell { column: listCells; name: row.name; number: row.numberText; description: row.description }
        OrvTextCell { column: leadsCells; text: row.leadsText }
        OrvTextCell { column: makerCells; text: row.makerText; color: Theme.text2 }
        OrvTextCell { column: updatedCells; text: row.updatedText; color: row.isRecent ? Theme.accentText : Theme.text2 }
        RowMenuCell { row: row; column: actionsCells; name: row.name }
    }
    onSortRequested: (key, descending) => store.sort(key, descending)
    onOpened: key => store.open(key)
    onRenameRequested: key => store.act("rename", key)
    onDeleteRequested: key => store.act("delete", key)
    onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)

    ActionMenu {
        id: menu
        store: root.store
    }
}
