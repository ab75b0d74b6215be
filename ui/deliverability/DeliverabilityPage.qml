import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Deliverability

/// What the placement watcher sees of every sending inbox and, beside the list, of one of them.
ListDetail {
    id: root

    required property DeliverabilityStore store

    Component.onCompleted: store.ensureLoaded()

    table: inboxTable
    shownKey: store.inbox.id
    title: store.inbox.address
    detailWidth: Window.width >= 1680 ? 480 : 408
    detail: InboxPane {
        inbox: root.store.inbox
    }
    onStepped: key => store.open(key)
    onCloseRequested: {
        store.closeInbox();
        inboxTable.focusRows();
    }

    function focusTable() {
        inboxTable.focusRows();
    }

    OrvHeading {
        id: title
        x: Theme.pageSide
        y: 16
        height: 24
        verticalAlignment: Text.AlignVCenter
        text: "Deliverability"
        Accessible.description: root.store.summary
    }

    Text {
        id: summary
        x: Theme.pageSide
        y: 40
        width: Math.min(640, parent.width - 2 * x)
        visible: text !== ""
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        lineHeightMode: Text.FixedHeight
        lineHeight: 20
        text: root.store.summary
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    TablePage {
        id: page
        y: Math.max(66, summary.y + (summary.visible ? summary.implicitHeight : 0) + 6)
        width: parent.width
        height: parent.height - y
        focus: true
        countText: root.store.countText
        resource: root.store.report
        view.skeletonTable: inboxTable
        view.emptyIcon: "security-high"
        view.emptyTitle: "No sending inboxes yet"
        view.emptyText: "Every inbox is watched as soon as it’s connected."
        view.errorTitle: "Couldn’t load deliverability"
        view.onRetryRequested: root.store.refresh()

        leading: OrvSegments {
            label: "Stage"
            options: root.store.stages
            current: root.store.stage
            onChosen: key => root.store.stage = key
        }

        trailing: [
            Text {
                visible: text !== "" && page.width >= 600
                height: Theme.controlHeight
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.store.lastScan
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            },
            RefreshButton {
                resource: root.store.report
                onClicked: root.store.refresh()
            }
        ]

        OrvTable {
            id: inboxTable
            anchors.fill: parent
            focus: true
            title: "Inboxes"
            name: "deliverability"
            model: root.store.rows
            keyRole: "id"
            sortKey: root.store.sortKey
            sortDescending: root.store.sortDescending
            query: root.store.stage
            columns: [
                OrvColumn { id: addressCells; key: "address"; title: "Inbox"; fill: true; sortable: true; minimumWidth: 160 },
                OrvColumn { id: stageCells; key: "stage"; title: "Stage"; preferredWidth: 112; sortable: true },
                OrvColumn { id: rateCells; key: "rate"; title: "Inbox rate"; preferredWidth: 96; alignment: Text.AlignRight; sortable: true },
                OrvColumn { id: checksCells; key: "checks"; title: "Checks"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true; visible: inboxTable.width >= 1240 },
                OrvColumn { id: gmailCells; key: "gmail"; title: "Gmail"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true; yields: 1 },
                OrvColumn { id: outlookCells; key: "outlook"; title: "Outlook"; preferredWidth: 76; alignment: Text.AlignRight; sortable: true; yields: 1 },
                OrvColumn { id: verdictCells; key: "verdict"; title: "What I decided"; preferredWidth: 180; sortable: true },
                OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
            ]
            delegate: InboxRow {
                addressColumn: addressCells
                stageColumn: stageCells
                rateColumn: rateCells
                checksColumn: checksCells
                gmailColumn: gmailCells
                outlookColumn: outlookCells
                verdictColumn: verdictCells
                actionsColumn: actionsCells
            }
            onSortRequested: (key, descending) => root.store.sort(key, descending)
            onOpened: key => root.store.open(key)
            onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        }

        OrvEmpty {
            anchors { fill: parent; topMargin: 32 }
            visible: root.store.rows.count === 0
            iconName: "view-filter"
            title: "No inboxes in this stage"
            text: "Try another stage."
            actionText: "Show all"
            onActionRequested: {
                root.store.showAll();
                inboxTable.focusRows();
            }
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
