import QtQuick
import Orvella.Design
import Orvella.App

/// The table of a list that is read page by page, with its ticks where rows can be ticked.
OrvTable {
    id: root

    required property PagedList list
    property RowSelection selection: null
    /// Said aloud when the next page could not be read.
    property string moreFailedMessage: "Couldn’t load more"

    model: list.rows
    keyRole: "id"
    query: list.question
    canLoadMore: list.canLoadMore
    loadingMore: list.loadingMore
    moreFailed: list.moreFailed
    tickedKeys: selection ? selection.ids : []

    onMoreRequested: list.loadMore()
    onRowsSeen: (first, last) => list.see(first, last)
    onTickToggled: key => selection.toggle(key)
    onTickExtended: (from, to) => selection.extendTo(from, to)
    onTickAllToggled: selection.toggleAll()
    onTicksCleared: selection.clear()

    onMoreFailedChanged: {
        if (moreFailed)
            Announcer.say(root.moreFailedMessage, "rows");
    }

    onLoadingMoreChanged: arrived.restart()

    // Page follows page; how many rows there are is told when no more come, to those who are there.
    Timer {
        id: arrived
        interval: 800
        onTriggered: {
            if (!root.activeFocus || root.loadingMore || root.moreFailed)
                return;
            const all = root.recordCount > root.rows.count ? " of " + root.recordCount.toLocaleString(Qt.locale(), "f", 0) : "";
            Announcer.say(root.rows.count.toLocaleString(Qt.locale(), "f", 0) + all + " rows", "rows");
        }
    }

    // The bar of what can be done with ticked rows goes with the last tick, and takes the focus along where it had it.
    function keepFocus() {
        const holder = Window.activeFocusItem;
        if (selection.count === 0 && (!holder || !holder.visible))
            focusRows();
    }

    Timer {
        id: later
        interval: 0
        onTriggered: root.keepFocus()
    }

    Connections {
        target: root.selection

        function onChanged() {
            later.restart();
        }
    }
}
