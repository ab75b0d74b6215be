import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// A campaign's leads: by status, searched, ticked, added and removed, and the archive of those removed.
FocusScope {
    id: root

    required property CampaignStore campaign
    readonly property CampaignLeads store: campaign.leads
    readonly property bool archive: store.leadsArchived
    readonly property bool filtered: store.leadStatus !== "" || store.leadQuery !== ""

    Component.onCompleted: store.ensureLoaded()

    LeadFilters {
        id: filters
        width: root.width
        store: root.store
        canWrite: root.campaign.canWrite
        onTableRequested: table.focusRows()
    }

    ResourceView {
        y: filters.height
        width: root.width
        height: root.height - y - foot.height
        resource: root.store.leads
        skeletonColumns: table.columns
        emptyIcon: root.archive ? "archive-insert" : root.filtered ? "view-filter" : "system-users"
        emptyTitle: root.archive ? "Nothing archived" : root.filtered ? "No leads with this status" : "No leads yet"
        emptyText: root.archive ? "A lead you remove waits here for 30 days, so you can restore it."
            : root.filtered ? "Leads change their status as the campaign sends."
            : "Add the people this campaign writes to: from a file, from a list or by hand."
        emptyAction: root.archive ? "" : root.filtered ? "Show all leads" : root.campaign.canWrite ? "Add leads" : ""
        errorTitle: "Couldn’t load the leads"
        onEmptyActionRequested: root.filtered ? root.store.showAll() : filters.openAddMenu()
        onRetryRequested: root.store.refresh()

        LeadTable {
            id: table
            anchors.fill: parent
            focus: true
            store: root.store
            canWrite: root.campaign.canWrite
            footRoom: bar.footRoom
            onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        }

        OrvEmpty {
            anchors { fill: parent; topMargin: 32 }
            visible: root.store.rows.count === 0
            iconName: "edit-find"
            title: root.store.loadingMore ? "Looking further" : "No leads match"
            text: root.store.loadingMore ? "None of the leads read so far match. The rest are being read."
                                         : "Try another word of the name, address, company or title."
            actionText: root.store.loadingMore ? "" : "Show all leads"
            onActionRequested: {
                root.store.showAll();
                table.focusRows();
            }
        }

        OrvSelectionBar {
            id: bar
            count: root.store.selectedCount
            onCleared: root.store.clearSelection()

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Pause"
                iconName: "media-playback-pause"
                enabled: !root.store.bulkBusy
                onClicked: root.store.pause(root.store.selected)
            }

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Resume"
                iconName: "media-playback-start"
                enabled: !root.store.bulkBusy
                onClicked: root.store.resume(root.store.selected)
            }

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Move"
                iconName: "go-next"
                enabled: !root.store.bulkBusy
                onClicked: root.store.beginMove(root.store.selected)
            }

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Remove"
                iconName: "edit-delete"
                enabled: !root.store.bulkBusy
                onClicked: root.store.remove(root.store.selected)
            }

            OrvButton {
                visible: root.archive
                kind: "ghost"
                text: "Restore"
                iconName: "edit-undo"
                enabled: !root.store.bulkBusy
                onClicked: root.store.restore(root.store.selected)
            }
        }
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: root.width
        countText: root.store.countText
        resource: root.store.leads
    }

    LeadMenu {
        id: menu
        store: root.store
        canWrite: root.campaign.canWrite
    }

    AddLeadsDialog {
        adding: root.store.adding
    }

    MoveLeadsDialog {
        move: root.store.move
    }

    LeadDrawer {
        store: root.store
        canWrite: root.campaign.canWrite
    }

    Shortcut {
        sequences: ["/", StandardKey.Find]
        onActivated: filters.focusSearch()
    }
}
