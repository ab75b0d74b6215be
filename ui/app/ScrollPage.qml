import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A page that scrolls as one: some content and, below it, a table whose head stays in sight and whose rows are made
/// only while they are.
FocusScope {
    id: root

    default property alias content: column.data
    /// Stays over the table's head, tabs say.
    property alias pinned: pin.data
    /// Stands below the content from one edge to the other: the table, and what takes its place when it has no rows.
    property alias below: host.data
    /// The table in `below`, with scrolledByPage set; null while it has nothing to scroll.
    property OrvTable table: null
    /// Of what stands below while there is no table.
    property real belowHeight: 240
    property real maximumWidth: Infinity
    readonly property real viewHeight: scroll.height

    readonly property real pinTop: column.y + column.height + 16
    readonly property real tableTop: pinTop + pin.height
    readonly property real headHeight: 32
    readonly property real full: table === null ? belowHeight
        : headHeight + table.rows.count * table.rowHeight + (table.loadingMore || table.moreFailed ? 44 : 0)

    // Where the page is, and only then the table, or the table would be asked for rows that it is about to leave.
    onTableChanged: follow()
    onTableTopChanged: follow()
    onFullChanged: follow()

    function follow() {
        if (table !== null)
            table.contentY = table.originY + wanted();
    }

    /// How far the table is scrolled where the page is.
    function wanted(): real {
        return Math.max(0, Math.min(scroll.contentY - pinTop, full - host.height));
    }

    function showRange(y: real, height: real, head: real) {
        if (y - head < scroll.contentY)
            keys.scrollTo(y - head);
        else if (y + height > scroll.contentY + scroll.height)
            keys.scrollTo(Math.min(y - head, y + height - scroll.height));
    }

    /// The table knows which row is current, but not how much of the table the window shows.
    function showRow() {
        if (table !== null && table.activeFocus && table.currentRow >= 0)
            showRange(tableTop + headHeight + table.currentRow * table.rowHeight, table.rowHeight, headHeight + pin.height);
    }

    function showFocus() {
        const item = Window.activeFocusItem;
        if (!item || !InputMode.keyboard)
            return;
        for (let parent = item; parent; parent = parent.parent) {
            if (parent === column)
                return showRange(column.y + item.mapToItem(column, 0, 0).y - 12, item.height + 24, 0);
            if (parent === pin)
                return showRange(pinTop, pin.height + headHeight, 0);
            if (parent === host)
                return showRow();
        }
    }

    Window.onActiveFocusItemChanged: showFocus()

    Keys.onPressed: event => keys.take(event)

    ScrollKeys {
        id: keys
        target: scroll
    }

    Flickable {
        id: scroll
        anchors.fill: parent
        contentHeight: root.tableTop + root.full
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: OrvScrollBar {}

        onContentYChanged: root.follow()

        Column {
            id: column
            x: Theme.pageSide
            y: 10
            // Wider, figures would lie too far apart to be read as one.
            width: Math.min(root.maximumWidth, scroll.width - 2 * x)
            spacing: 16
        }

        Item {
            id: pin
            x: column.x
            y: host.y - height
            width: column.width
            height: childrenRect.height
        }

        Item {
            id: host
            y: Math.max(root.tableTop, Math.min(scroll.contentY + pin.height, root.tableTop + root.full - height))
            width: scroll.width
            height: Math.min(root.full, Math.max(scroll.height - pin.height, 240))

            onHeightChanged: root.follow()
        }
    }

    Connections {
        target: root.table

        // The keyboard, or a new order, moved it.
        function onContentYChanged() {
            const seen = root.table.contentY - root.table.originY;
            if (Math.abs(seen - root.wanted()) >= 1)
                keys.scrollTo(root.pinTop + seen);
        }
        function onCurrentRowChanged() {
            root.showRow();
        }
    }
}
