import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The line over a campaign's leads: which are shown, the search, the archive, and adding more.
FilterLine {
    id: root

    required property CampaignLeads store
    required property bool canWrite
    readonly property bool narrow: width < 900

    signal tableRequested()

    function focusSearch() {
        search.forceActiveFocus(Qt.ShortcutFocusReason);
        search.selectAll();
    }

    function openAddMenu() {
        add.openMenu();
    }

    leading: [
        OrvButton {
            visible: root.store.leadsArchived
            text: "Back to leads"
            iconName: "arrow-left"
            onClicked: root.store.leadsArchived = false
        },
        OrvSelect {
            width: 208
            label: ""
            hint: "Which leads are shown"
            options: root.store.statusCounts
            current: root.store.leadStatus
            placeholder: "All leads"
            onChosen: key => root.store.leadStatus = key
        }
    ]

    OrvField {
        id: search
        width: root.narrow ? 172 : 232
        search: true
        placeholder: "Search leads"
        text: root.store.leadQuery
        onEdited: text => root.store.leadQuery = text
        onAccepted: root.tableRequested()
        onEscaped: root.tableRequested()
        Keys.onDownPressed: root.tableRequested()
    }

    OrvButton {
        visible: !root.store.leadsArchived
        kind: "ghost"
        text: "Archived"
        iconName: "archive-insert"
        iconOnly: root.narrow
        count: root.store.archivedCount
        onClicked: root.store.leadsArchived = true
    }

    OrvButton {
        kind: "ghost"
        iconOnly: true
        iconName: "view-refresh"
        text: "Refresh"
        busy: root.store.leads.refreshing
        onClicked: root.store.refresh()
    }

    AddLeadsButton {
        id: add
        visible: !root.store.leadsArchived
        enabled: root.canWrite
        hint: root.canWrite ? "" : "Only members can add leads."
        adding: root.store.adding
    }
}
