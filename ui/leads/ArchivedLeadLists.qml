import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Deleted lists, while they can be restored.
ArchivePage {
    id: root

    required property LeadLists store

    actor: store
    backText: "Back to lists"
    title: "Archived lists"
    summary: "Deleted lists wait here for 30 days, ready to restore."
    countText: store.archivedCountText
    resource: store.archived
    view.skeletonTable: table
    view.emptyText: "Deleted lists wait here for 30 days, ready to restore."
    view.errorTitle: "Couldn’t load archived lists"
    onBack: store.showArchived = false

    function focusTable() {
        table.focusRows();
    }

    PagedTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Archived lists"
        name: "lead-lists-archive"
        rowHeight: 52
        list: root.store.archived
        sortKey: root.store.sortKey
        sortDescending: root.store.sortDescending
        busyKeys: root.store.busyIds
        columns: [
            OrvColumn { id: listColumn; key: "list"; title: "List"; fill: true; sortable: true; minimumWidth: 200 },
            OrvColumn { id: leadsColumn; key: "leads"; title: "Leads"; preferredWidth: 84; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: deletedColumn; key: "deleted"; title: "Deleted"; preferredWidth: 104; sortable: true },
            OrvColumn { id: goneColumn; key: "gone"; title: "Goes for good"; preferredWidth: 112; sortable: true },
            OrvColumn { id: actionsColumn; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 148; resizable: false }
        ]
        delegate: OrvTableRow {
            id: row

            required property string name
            required property string numberText
            required property string description
            required property string leadsText
            required property string deletedText
            required property string goneText

            label: name + ", goes for good " + goneText

            LeadListNameCell { column: listColumn; name: row.name; number: row.numberText; description: row.description }
            OrvTextCell { column: leadsColumn; text: row.leadsText }
            OrvTextCell { column: deletedColumn; text: row.deletedText; color: Theme.text2 }
            OrvTextCell { column: goneColumn; text: row.goneText; color: Theme.text2 }
            RestoreCell { row: row; actor: root.store; column: actionsColumn; name: row.name }
            RowMenuCell { row: row; column: actionsColumn; name: row.name }
        }
        onSortRequested: (key, descending) => root.store.sort(key, descending)
        // A deleted list has no page: Enter offers what can be done instead.
        onOpened: key => root.openMenu(key, itemOf(key), 24, rowHeight)
        onDeleteRequested: key => root.store.act("delete", key)
        onMenuRequested: (key, row, x, y) => root.openMenu(key, row, x, y)
    }
}
