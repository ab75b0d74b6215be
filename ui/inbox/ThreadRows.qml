import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The rows of the conversations. The one that is open is marked; the row that the keyboard comes to rest on opens.
TableCore {
    id: root

    required property InboxStore store
    readonly property PagedList list: store.threads.list

    title: "Conversations"
    rowHeight: 99
    sidePadding: 0
    model: list.rows
    keyRole: "id"
    query: list.question
    canLoadMore: list.canLoadMore
    loadingMore: list.loadingMore
    moreFailed: list.moreFailed
    openKey: store.openId
    busyKeys: store.busyIds
    columns: [
        OrvColumn { id: threadCells; key: "said"; title: "Conversation"; fill: true }
    ]

    Accessible.role: Accessible.Table
    Accessible.name: title

    onMoreRequested: list.loadMore()
    onRowsSeen: (first, last) => list.see(first, last)
    onOpened: key => {
        rest.stop();
        store.open(key);
    }
    onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
    onQueryChanged: body.goToTop()

    // Only what somebody walks to opens, not what rows that come and go make the current one.
    Keys.onReleased: event => {
        event.accepted = false;
        switch (event.key) {
        case Qt.Key_Up:
        case Qt.Key_Down:
        case Qt.Key_PageUp:
        case Qt.Key_PageDown:
        case Qt.Key_Home:
        case Qt.Key_End:
            rest.restart();
        }
    }

    function focusRows() {
        body.forceActiveFocus(Qt.OtherFocusReason);
    }

    function goToTop() {
        body.goToTop();
    }

    // A key that is held passes many rows; where it comes to rest is what is looked at.
    Timer {
        id: rest
        interval: 120
        onTriggered: if (root.currentKey !== "") root.store.open(root.currentKey)
    }

    Connections {
        target: root.store

        function onOpenChanged() {
            const row = root.rows.rowOf(root.store.openId);
            if (row >= 0 && root.currentKey !== root.store.openId)
                body.moveTo(row);
            rest.stop();
        }
    }

    TableBody {
        id: body
        anchors.fill: parent
        focus: true
        table: root
        delegate: ThreadRow {
            column: threadCells
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
