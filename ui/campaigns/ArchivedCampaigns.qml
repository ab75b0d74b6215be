import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Deleted campaigns, while they can be restored.
ArchivePage {
    id: root

    required property CampaignsStore store

    actor: store
    backText: "Back to campaigns"
    title: "Archived campaigns"
    summary: "Deleted campaigns wait here for 30 days, then go for good. They never send."
    countText: store.archivedCountText
    resource: store.archived
    view.skeletonTable: table
    view.emptyText: "A campaign you delete waits here for 30 days, so you can restore it."
    view.errorTitle: "Couldn’t load archived campaigns"
    onBack: store.showArchived = false

    function focusTable() {
        table.focusRows();
    }

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Archived campaigns"
        name: "campaigns-archive"
        model: root.store.archivedRows
        keyRole: "id"
        sortKey: root.store.archivedSortKey
        sortDescending: root.store.archivedSortDescending
        busyKeys: root.store.busyIds
        columns: [
            OrvColumn { id: nameColumn; key: "name"; title: "Campaign"; fill: true; sortable: true; minimumWidth: 200 },
            OrvColumn { id: leadsColumn; key: "leads"; title: "Leads"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: deletedColumn; key: "deleted"; title: "Deleted"; preferredWidth: 104; sortable: true },
            OrvColumn { id: goneColumn; key: "gone"; title: "Goes for good"; preferredWidth: 112; sortable: true },
            OrvColumn { id: actionsColumn; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 148; resizable: false }
        ]
        delegate: OrvTableRow {
            id: row

            required property string name
            required property string facts
            required property string leadsText
            required property string sentText
            required property string deletedText
            required property string goneText

            label: name + ", goes for good " + goneText

            OrvTwoLineCell { column: nameColumn; title: row.name; detail: row.facts }
            OrvTextCell { column: leadsColumn; text: row.leadsText }
            OrvTextCell { column: sentColumn; text: row.sentText }
            OrvTextCell { column: deletedColumn; text: row.deletedText; color: Theme.text2 }
            OrvTextCell { column: goneColumn; text: row.goneText; color: Theme.text2 }

            RestoreCell { row: row; actor: root.store; column: actionsColumn; name: row.name }
            RowMenuCell { row: row; column: actionsColumn; name: row.name }
        }
        onSortRequested: (key, descending) => root.store.sortArchived(key, descending)
        onOpened: key => openMenuAtRow(key)
        onDeleteRequested: key => root.store.act("delete", key)
        onMenuRequested: (key, row, x, y) => root.openMenu(key, row, x, y)

        // A deleted campaign has no page: Enter offers what can be done instead.
        function openMenuAtRow(key: string) {
            root.openMenu(key, itemOf(key), 24, rowHeight);
        }
    }
}
