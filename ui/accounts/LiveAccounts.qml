import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// The list of accounts: filters, search, sort, ticks and what can be done to each and to many.
TablePage {
    id: root

    required property AccountsStore store
    readonly property bool narrow: width < 1000

    title: "Accounts"
    summary: store.summary
    attention: store.attention
    countText: store.countText
    resource: store.list
    view.skeletonTable: table
    view.emptyIcon: "mail-message"
    view.emptyTitle: "No email accounts yet"
    view.emptyText: "Connect the inboxes you send from. Each one warms up, then joins your campaigns."
    view.emptyAction: store.canWrite ? "Add account" : ""
    view.errorTitle: "Couldn’t load accounts"
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
            text: "Add account"
            iconName: "list-add"
            keys: "N"
            enabled: root.store.canWrite
            hint: root.store.addHint
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
            width: root.narrow ? 172 : 232
            placeholder: "Search email, name or tag"
            text: root.store.query
            onEdited: text => root.store.query = text
            onFinished: table.focusRows()
        },
        OrvSelect {
            width: 152
            hint: "Whose accounts are shown"
            options: root.store.providers
            current: root.store.provider
            onChosen: key => root.store.provider = key
        },
        RefreshButton {
            resource: root.store.list
            onClicked: root.store.refresh()
        }
    ]

    AccountTable {
        id: table
        anchors.fill: parent
        focus: true
        store: root.store
        footRoom: bar.footRoom
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
    }

    OrvEmpty {
        anchors { fill: parent; topMargin: 32 }
        visible: root.store.list.rows.count === 0
        iconName: "view-filter"
        title: "No accounts match"
        text: "Try another status, provider or search."
        actionText: "Show all"
        onActionRequested: {
            root.store.showAll();
            table.focusRows();
        }
    }

    AccountBulkBar {
        id: bar
        bulk: root.store.bulk
        count: root.store.selection.count
        onCleared: {
            root.store.selection.clear();
            table.focusRows();
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
