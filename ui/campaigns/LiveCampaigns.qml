import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The list of campaigns: filters, search, sort and what can be done to each.
TablePage {
    id: root

    required property CampaignsStore store

    readonly property bool narrow: width < 1000

    title: "Campaigns"
    summary: store.summary
    countText: store.countText
    resource: store.list
    view.skeletonTable: table
    view.emptyIcon: "mail-send"
    view.emptyTitle: "No campaigns yet"
    view.emptyText: "A campaign is a sequence of emails sent to a list of leads from inboxes that are ready to send."
    view.emptyAction: store.canWrite ? "New campaign" : ""
    view.errorTitle: "Couldn’t load campaigns"
    view.onEmptyActionRequested: store.act("new")
    view.onRetryRequested: store.refresh()

    function focusTable() {
        table.focusRows();
    }

    actions: [
        OrvButton {
            kind: "ghost"
            text: "Archived"
            iconName: "archive-insert"
            count: root.store.archivedCount
            onClicked: root.store.showArchived = true
        },
        OrvButton {
            kind: "primary"
            text: "New campaign"
            iconName: "list-add"
            keys: "N"
            enabled: root.store.canWrite
            hint: root.store.createHint
            onClicked: root.store.act("new")
        }
    ]

    leading: OrvSegments {
        label: "Status"
        options: root.store.statusCounts
        current: root.store.filter
        onChosen: key => root.store.filter = key
    }

    trailing: [
        SearchField {
            width: root.narrow ? 180 : 208
            placeholder: "Search campaigns"
            text: root.store.query
            onEdited: text => root.store.query = text
            onFinished: table.focusRows()
        },
        TagFilter {
            store: root.store
        },
        RefreshButton {
            resource: root.store.list
            onClicked: root.store.refresh()
        }
    ]

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Campaigns"
        name: "campaigns"
        model: root.store.rows
        keyRole: "id"
        sortKey: root.store.sortKey
        sortDescending: root.store.sortDescending
        query: root.store.filter + "\n" + root.store.query + "\n" + root.store.tags
        columns: [
            OrvColumn { id: nameCells; key: "name"; title: "Campaign"; fill: true; sortable: true; minimumWidth: 200 },
            OrvColumn { id: statusCells; key: "status"; title: "Status"; preferredWidth: 92; sortable: true },
            OrvColumn { id: progressCells; key: "progress"; title: "Progress"; preferredWidth: root.width >= 1280 ? 248 : 148; sortable: true },
            OrvColumn { id: sentCells; key: "sent"; title: "Sent"; preferredWidth: 60; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: repliedCells; key: "replied"; title: "Replied"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: positiveCells; key: "positive"; title: "Positive"; preferredWidth: 64; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: bouncedCells; key: "bounced"; title: "Bounced"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true; yields: 1 },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
        ]
        delegate: CampaignRow {
            nameColumn: nameCells
            statusColumn: statusCells
            progressColumn: progressCells
            sentColumn: sentCells
            repliedColumn: repliedCells
            positiveColumn: positiveCells
            bouncedColumn: bouncedCells
            actionsColumn: actionsCells
        }
        busyKeys: root.store.busyIds
        onSortRequested: (key, descending) => root.store.sort(key, descending)
        onOpened: key => root.store.open(key)
        onRenameRequested: key => root.store.act("rename", key)
        onDeleteRequested: key => root.store.act("delete", key)
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
    }

    OrvEmpty {
        anchors { fill: parent; topMargin: 32 }
        visible: root.store.rows.count === 0
        iconName: "view-filter"
        title: "No campaigns match"
        text: "Try another filter or search."
        actionText: "Show all"
        onActionRequested: {
            root.store.showAll();
            table.focusRows();
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }

    Shortcut {
        sequence: "Ctrl+D"
        enabled: table.activeFocus && table.currentKey !== ""
        onActivated: root.store.act("duplicate", table.currentKey)
    }
}
