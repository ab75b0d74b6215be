import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Deleted campaigns, while they can be restored.
FocusScope {
    id: root

    required property CampaignsStore store

    function focusTable() {
        table.focusRows();
    }

    function openMenu(key: string, row: Item, x: real, y: real) {
        rowMenu.campaign = key;
        rowMenu.openIn(row, x, y);
    }

    PageHeader {
        id: header
        width: root.width
        title: "Archived campaigns"
        summary: "Deleted campaigns wait here for 30 days, then go for good. They never send."
    }

    FilterLine {
        id: filters
        y: header.height
        width: root.width

        leading: OrvButton {
            text: "Back to campaigns"
            iconName: "arrow-left"
            onClicked: root.store.showArchived = false
        }

        OrvButton {
            kind: "ghost"
            iconOnly: true
            iconName: "view-refresh"
            text: "Refresh"
            keys: "F5"
            busy: root.store.archived.refreshing
            onClicked: root.store.refresh()
        }
    }

    ResourceView {
        y: filters.y + filters.height
        width: root.width
        height: root.height - y - foot.height
        resource: root.store.archived
        skeletonColumns: table.columns
        emptyIcon: "archive-insert"
        emptyTitle: "Nothing archived"
        emptyText: "A campaign you delete waits here for 30 days, so you can restore it."
        errorTitle: "Couldn’t load archived campaigns"
        onRetryRequested: root.store.refresh()

        OrvTable {
            id: table
            anchors.fill: parent
            focus: true
            title: "Archived campaigns"
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

                OrvCell {
                    column: actionsColumn

                    OrvButton {
                        x: parent.width - width - 34
                        anchors.verticalCenter: parent.verticalCenter
                        size: "small"
                        text: "Restore"
                        iconName: "edit-undo"
                        focusPolicy: Qt.NoFocus
                        activeFocusOnTab: false
                        busy: row.busy
                        onClicked: root.store.restore(row.key)
                    }
                }

                RowMenuCell { row: row; column: actionsColumn; name: row.name }
            }
            onSortRequested: key => root.store.toggleArchivedSort(key || root.store.archivedSortKey)
            onOpened: key => openMenuAtRow(key)
            onDeleteRequested: key => root.store.removeForGood(key)
            onMenuRequested: (key, row, x, y) => root.openMenu(key, row, x, y)

            // A deleted campaign has no page: Enter offers what can be done instead.
            function openMenuAtRow(key: string) {
                root.openMenu(key, itemOf(key), 24, rowHeight);
            }
        }
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: root.width
        countText: root.store.archivedCountText
        resource: root.store.archived
    }

    MenuLoader {
        id: rowMenu

        // Not "menu": in an entry that is the entry's own.
        property string campaign: ""

        sourceComponent: OrvMenu {
            title: "Actions"

            OrvMenuItem {
                text: "Restore"
                iconName: "edit-undo"
                onTriggered: root.store.restore(rowMenu.campaign)
            }

            OrvMenuSeparator {}

            OrvMenuItem {
                text: "Delete for good"
                iconName: "edit-delete"
                shortcutText: "Del"
                danger: true
                onTriggered: root.store.removeForGood(rowMenu.campaign)
            }
        }
    }

    Shortcut {
        sequences: ["F5", "Ctrl+R"]
        onActivated: root.store.refresh()
    }

    Shortcut {
        sequence: "Escape"
        onActivated: root.store.showArchived = false
    }
}
