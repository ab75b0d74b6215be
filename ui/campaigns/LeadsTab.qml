import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// A campaign's leads: by status, searched, ticked, added and removed, and the archive of those removed; beside them what
/// is known of one.
ListDetail {
    id: root

    required property CampaignStore campaign
    readonly property CampaignLeads store: campaign.leads
    readonly property bool archive: store.leadsArchived
    readonly property bool filtered: store.leadStatus !== "" || store.leadQuery !== ""
    readonly property bool narrow: page.width < 900

    Component.onCompleted: store.ensureLoaded()

    table: leadTable
    shownKey: store.panel.shown ? store.panel.leadId : ""
    title: store.panel.name
    detail: LeadPane {
        store: root.store
        canWrite: root.campaign.canWrite
    }
    onStepped: key => store.open(key)
    onCloseRequested: store.panel.dismiss()

    TablePage {
        id: page
        anchors.fill: parent
        focus: true
        countText: root.store.countText
        resource: root.store.leads
        view.skeletonTable: leadTable
        view.emptyIcon: root.archive ? "archive-insert" : root.filtered ? "view-filter" : "system-users"
        view.emptyTitle: root.archive ? "Nothing archived" : root.filtered ? "No leads with this status" : "No leads yet"
        view.emptyText: root.archive ? "A lead you remove waits here for 30 days, so you can restore it."
            : root.filtered ? "Leads change their status as the campaign sends."
            : "Add the people this campaign writes to: from a file, from a list or by hand."
        view.emptyAction: root.archive ? "" : root.filtered ? "Show all leads" : root.campaign.canWrite ? "Add leads" : ""
        view.errorTitle: "Couldn’t load the leads"
        view.onEmptyActionRequested: root.filtered ? root.store.showAll() : add.openMenu()
        view.onRetryRequested: root.store.refresh()

        leading: [
            OrvButton {
                visible: root.archive
                text: "Back to leads"
                iconName: "arrow-left"
                onClicked: root.store.leadsArchived = false
            },
            OrvSelect {
                width: 208
                hint: "Which leads are shown"
                options: root.store.statusCounts
                current: root.store.leadStatus
                placeholder: "All leads"
                onChosen: key => root.store.leadStatus = key
            }
        ]

        trailing: [
            SearchField {
                width: root.narrow ? 172 : 232
                placeholder: "Search leads"
                text: root.store.leadQuery
                onEdited: text => root.store.leadQuery = text
                onFinished: leadTable.focusRows()
            },
            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Archived"
                iconName: "archive-insert"
                iconOnly: root.narrow
                count: root.store.archivedCount
                onClicked: root.store.leadsArchived = true
            },
            RefreshButton {
                resource: root.store.leads
                // The campaign's page has them, for whatever of it shows.
                withKeys: false
                onClicked: root.store.refresh()
            },
            AddLeadsButton {
                id: add
                visible: !root.archive
                enabled: root.campaign.canWrite
                hint: root.campaign.canWrite ? "" : "Only members can add leads."
                adding: root.store.adding
            }
        ]

        LeadTable {
            id: leadTable
            anchors.fill: parent
            focus: true
            store: root.store
            canWrite: root.campaign.canWrite
            footRoom: bar.footRoom
            onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        }

        OrvEmpty {
            anchors { fill: parent; topMargin: 32 }
            visible: root.store.leads.rows.count === 0
            iconName: "edit-find"
            title: root.store.leads.loadingMore ? "Looking further" : "No leads match"
            text: root.store.leads.loadingMore ? "None of the leads read so far match. The rest are being read."
                                         : "Try another word of the name, address, company or title."
            actionText: root.store.leads.loadingMore ? "" : "Show all leads"
            onActionRequested: {
                root.store.showAll();
                leadTable.focusRows();
            }
        }

        OrvSelectionBar {
            id: bar
            count: root.store.selection.count
            onCleared: root.store.selection.clear()

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Pause"
                iconName: "media-playback-pause"
                enabled: !root.store.bulkBusy
                onClicked: root.store.pause(root.store.selection.ids)
            }

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Resume"
                iconName: "media-playback-start"
                enabled: !root.store.bulkBusy
                onClicked: root.store.resume(root.store.selection.ids)
            }

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Move"
                iconName: "go-next"
                enabled: !root.store.bulkBusy
                onClicked: root.store.beginMove(root.store.selection.ids)
            }

            OrvButton {
                visible: !root.archive
                kind: "ghost"
                text: "Remove"
                iconName: "edit-delete"
                enabled: !root.store.bulkBusy
                onClicked: root.store.remove(root.store.selection.ids)
            }

            OrvButton {
                visible: root.archive
                kind: "ghost"
                text: "Restore"
                iconName: "edit-undo"
                enabled: !root.store.bulkBusy
                onClicked: root.store.restore(root.store.selection.ids)
            }
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }

    AddLeadsDialog {
        adding: root.store.adding
    }

    MoveLeadsDialog {
        move: root.store.move
    }
}
