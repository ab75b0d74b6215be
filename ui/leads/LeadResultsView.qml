import QtQuick
import Orvella.App
import Orvella.Leads

/// What a search found, or what is in a list: the table, the card of one lead beside it, and what can be done with those
/// that are ticked. Children stand above the table.
ListDetail {
    id: root

    required property LeadResults results
    required property LeadColumns choice
    required property bool canWrite
    /// The store whose page this is.
    required property Store store
    /// Buttons of the selection bar that only this place has.
    property alias placeActions: bar.more
    readonly property alias view: resourceView
    property alias head: headSpace.data

    table: leadTable
    shownKey: results.card.shown ? results.card.leadId : ""
    title: results.card.name
    detail: LeadCardPane {
        results: root.results
        canWrite: root.canWrite
    }
    onStepped: key => results.card.open(key)
    onCloseRequested: {
        results.card.dismiss();
        leadTable.focusRows();
    }

    Item {
        id: headSpace
        width: parent.width
        height: childrenRect.height
    }

    ResourceView {
        id: resourceView
        y: headSpace.height
        width: parent.width
        height: parent.height - y
        resource: root.results.list
        skeletonTable: leadTable
        skeletonRowHeight: leadTable.rowHeight
        errorTitle: "Couldn’t load the leads"
        onRetryRequested: root.results.refresh()

        LeadTable {
            id: leadTable
            anchors.fill: parent
            focus: true
            results: root.results
            choice: root.choice
            canWrite: root.canWrite
            footRoom: bar.footRoom
            onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
            onDeleteRequested: key => root.store.act("remove", key)
        }

        LeadPeek {
            table: leadTable
            card: root.results.card
            height: parent.height
        }

        LeadSelectionBar {
            id: bar
            results: root.results
            narrow: resourceView.width < 760
            onCleared: {
                root.results.selection.clear();
                leadTable.focusRows();
            }
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }

    SelectLeadsDialog {
        results: root.results
    }
}
