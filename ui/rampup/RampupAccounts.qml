import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// The accounts by phase, with today's figures, and what can be done with one and with many.
TablePage {
    id: root

    required property RampupStore store
    readonly property bool narrow: width < 1000
    readonly property bool roomy: width >= 1280

    title: "Rampup"
    summary: store.summary
    attention: store.protectedText
    countText: store.countText
    resource: store.list
    view.skeletonTable: table
    view.emptyIcon: "view-calendar-timeline"
    view.emptyTitle: "No accounts on a roadmap yet"
    view.emptyText: "Connect the inboxes you send from. Each one follows a roadmap from its first day."
    view.errorTitle: "Couldn’t load the roadmaps"
    view.onRetryRequested: store.refresh()

    function focusTable() {
        table.focusRows();
    }

    actions: RampupSections {
        store: root.store
    }

    leading: OrvSegments {
        label: "Phase"
        options: root.store.phases
        current: root.store.filter
        onChosen: key => root.store.filter = key
    }

    trailing: RefreshButton {
        resource: root.store.list
        onClicked: root.store.refresh()
    }

    PagedTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Accounts on roadmaps"
        name: "rampup"
        list: root.store.list
        selection: root.store.bulk.selection
        tickable: root.store.canWrite
        busyKeys: root.store.accounts.busyIds
        sortKey: root.store.sortKey
        sortDescending: root.store.sortDescending
        footRoom: bar.footRoom
        columns: [
            OrvColumn { id: addressCells; key: "address"; title: "Account"; fill: true; sortable: true; minimumWidth: 180 },
            OrvColumn { id: phaseCells; key: "phase"; title: "Phase"; preferredWidth: 112; sortable: true },
            OrvColumn { id: standingCells; key: "standing"; title: "Roadmap"; preferredWidth: root.roomy ? 320 : 204; sortable: true },
            OrvColumn { id: templateCells; key: "template"; title: "Template"; preferredWidth: 200; sortable: true; visible: root.roomy },
            OrvColumn { id: warmupCells; key: "warmup"; title: "Warm-up today"; preferredWidth: 104; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: campaignCells; key: "campaign"; title: "Campaign today"; preferredWidth: 112; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: inboxCells; key: "inbox"; title: "Inbox, 7 days"; preferredWidth: 96; sortable: true; visible: !root.narrow },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
        ]
        delegate: RampupRow {
            addressColumn: addressCells
            phaseColumn: phaseCells
            standingColumn: standingCells
            templateColumn: templateCells
            warmupColumn: warmupCells
            campaignColumn: campaignCells
            inboxColumn: inboxCells
            actionsColumn: actionsCells
            onLookedAt: key => root.store.details.look(key)
        }
        onSortRequested: (key, descending) => root.store.sort(key, descending)
        onOpened: key => root.store.open(key)
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        // Whoever walks the rows with the keyboard opens the one they rest on.
        onCurrentKeyChanged: root.store.details.look(currentKey)
    }

    OrvEmpty {
        anchors { fill: parent; topMargin: 32 }
        visible: root.store.list.rows.count === 0
        iconName: "view-filter"
        title: "No accounts in this phase"
        text: "Try another phase."
        actionText: "Show all"
        onActionRequested: {
            root.store.showAll();
            table.focusRows();
        }
    }

    RampupBulkBar {
        id: bar
        bulk: root.store.bulk
        narrow: root.narrow
        onCleared: {
            root.store.bulk.selection.clear();
            table.focusRows();
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
