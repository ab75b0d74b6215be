import QtQuick
import QtQuick.Templates as T

/// The scrolling part of an OrvTable: its rows, the keys that move over them and the pointer on them.
ListView {
    id: root

    required property TableCore table
    property real heldOffset: 0
    property bool held: false

    readonly property int firstRow: Math.max(0, Math.floor((contentY - originY) / table.rowHeight))
    readonly property int lastRow: Math.min(count - 1, Math.floor((contentY - originY + height) / table.rowHeight))
    readonly property int pageRows: Math.max(1, Math.floor((height - table.footRoom) / table.rowHeight) - 1)

    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    interactive: !table.scrolledByPage
    flickableDirection: Flickable.HorizontalAndVerticalFlick
    contentWidth: Math.max(width, table.placed.contentWidth)
    bottomMargin: table.footRoom
    clip: true
    model: table.model
    reuseItems: true
    // The table has its own current row, held by id; the view's would be kept by number.
    currentIndex: -1
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    cacheBuffer: 0

    T.ScrollBar.vertical: OrvScrollBar {
        policy: root.table.scrolledByPage ? T.ScrollBar.AlwaysOff : T.ScrollBar.AsNeeded
    }
    T.ScrollBar.horizontal: OrvScrollBar {}

    footer: TableFoot {
        loading: root.table.loadingMore
        failed: root.table.moreFailed
        onRetryRequested: root.table.moreRequested()
        width: root.width
        x: root.contentX
    }

    onActiveFocusChanged: {
        if (activeFocus && table.currentRow < 0)
            table.rows.setCurrentRow(firstRow);
    }
    onContentXChanged: table.placed.scrollX = contentX
    onContentYChanged: {
        hover.place();
        askForMore();
    }
    onCountChanged: askForMore()
    onFirstRowChanged: tellSeen()
    onLastRowChanged: tellSeen()

    /// What the widest of the rows in sight takes in a column, and its title.
    function naturalWidth(column: OrvColumn): real {
        let widest = column.minimumWidth;
        for (let row = 0; row < count; ++row) {
            const item = itemAtIndex(row);
            if (item)
                widest = Math.max(widest, (item as OrvTableRow).naturalWidth(column));
        }
        return Math.max(widest, titleWidth.advanceWidth(column.title) + 16);
    }

    FontMetrics {
        id: titleWidth
        font: Theme.smallStrong
    }

    function goToTop() {
        held = false;
        table.rows.dropAnchor();
        contentY = originY;
    }

    function holdPosition() {
        // Several changes between two frames count as one: the first saw what was on the screen. At the very top new
        // rows are let in, as they are what a person who looks there waits for.
        if (held || contentY <= originY)
            return;
        held = true;
        heldOffset = contentY - originY - firstRow * table.rowHeight;
        table.rows.holdAnchor(firstRow, pageRows);
    }

    function restorePosition() {
        if (!held)
            return;
        held = false;
        forceLayout();
        const row = table.rows.anchorRow();
        if (row >= 0)
            scrollTo(row * table.rowHeight + heldOffset);
        table.rows.dropAnchor();
    }

    /// Rows take the focus as they become current, but between a change of the model and the view's answer to it their
    /// numbers are those of others.
    function focusCurrent() {
        forceLayout();
        const item = itemAtIndex(table.currentRow);
        if (item)
            item.focus = true;
    }

    /// `y` counts from the first row's top.
    function scrollTo(y: real) {
        const last = Math.max(0, contentHeight + bottomMargin - height);
        contentY = originY + Math.min(Math.max(0, y), last);
    }

    function reveal(row: int) {
        // The height is that of the rows before the last change until the view has laid them out.
        forceLayout();
        const top = row * table.rowHeight;
        const seen = contentY - originY;
        if (top < seen)
            scrollTo(top);
        else if (top + table.rowHeight > seen + height - table.footRoom)
            scrollTo(top + table.rowHeight - height + table.footRoom);
    }

    function goBack() {
        const place = table.wanted;
        const row = table.rows.rowOf(place.key ?? "");
        if (row < 0)
            return;
        table.wanted = {};
        table.rows.setCurrentRow(row);
        forceLayout();
        // The page around it goes back by itself.
        if (!table.scrolledByPage)
            scrollTo(place.y);
        // Who has gone on meanwhile is not fetched back.
        if (place.focused && (Window.activeFocusItem?.isPageHeading ?? false))
            forceActiveFocus(Qt.OtherFocusReason);
    }

    function moveTo(row: int) {
        if (row < 0 || count === 0)
            return;
        table.wanted = {};
        row = Math.min(row, count - 1);
        reveal(row);
        table.rows.setCurrentRow(row);
    }

    function askForMore() {
        const seen = contentY - originY + height;
        if (table.canLoadMore && !table.loadingMore && !table.moreFailed && seen > (count - pageRows) * table.rowHeight)
            table.moreRequested();
    }

    function tellSeen() {
        if (height > 0 && count > 0)
            table.rowsSeen(firstRow, lastRow);
    }

    function openMenu(row: int, x: real, y: real) {
        const item = itemAtIndex(row);
        if (item)
            table.menuRequested(table.rows.keyAt(row), item, x, y);
    }

    Keys.onPressed: event => {
        // Before anything: what is done may take the table away.
        event.accepted = true;
        if (!move(event) && !act(event))
            event.accepted = false;
    }

    function move(event): bool {
        const from = table.currentKey;
        const row = table.currentRow;
        switch (event.key) {
        case Qt.Key_Up: moveTo(Math.max(0, row - 1)); break;
        case Qt.Key_Down: moveTo(row + 1); break;
        case Qt.Key_PageUp: moveTo(Math.max(0, row - pageRows)); break;
        case Qt.Key_PageDown: moveTo(row + pageRows); break;
        case Qt.Key_Home: moveTo(0); break;
        case Qt.Key_End: moveTo(count - 1); break;
        case Qt.Key_Left: return moveCell(-1);
        case Qt.Key_Right: return moveCell(1);
        default: return false;
        }
        if ((event.modifiers & Qt.ShiftModifier) && table.tickable)
            table.tickExtended(from, table.currentKey);
        return true;
    }

    /// Along the current row, into sight.
    function moveCell(by: int): bool {
        const cells = table.placed.readable();
        const next = cells[cells.indexOf(table.currentColumn) + by];
        if (!next)
            return cells.length > 0;
        table.cellColumn = next;
        if (!next.frozen) {
            const left = next.x - Math.max(table.placed.frozenWidth, table.placed.leftPadding);
            const right = next.x + next.width + table.placed.rightPadding - width;
            contentX = Math.max(0, Math.min(left, Math.max(right, contentX)));
        }
        return true;
    }

    /// The current cell, or all ticked rows, one to a line.
    function copy() {
        if (table.tickedKeys.length > 0)
            table.rows.copy(table.tickedKeys, table.placed.readable().map(column => column.key));
        else if (table.currentColumn)
            table.rows.copy([table.currentKey], [table.currentColumn.key]);
    }

    function act(event): bool {
        const key = table.currentKey;
        const plain = event.modifiers === Qt.NoModifier;
        if (event.key === Qt.Key_A && event.modifiers === Qt.ControlModifier && table.tickable) {
            table.tickAllToggled();
            return true;
        }
        if (event.key === Qt.Key_Escape && table.tickedKeys.length > 0) {
            table.ticksCleared();
            return true;
        }
        if (key === "")
            return false;
        if (event.key === Qt.Key_Space && table.tickable)
            table.tickToggled(key);
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && plain)
            table.opened(key);
        else if (event.matches(StandardKey.Copy))
            copy();
        else
            return !table.rows.isBusy(key) && change(event, key);
        return true;
    }

    function change(event, key: string): bool {
        if (event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier)))
            openMenu(table.currentRow, table.sidePadding, table.rowHeight);
        else if (event.key === Qt.Key_F2)
            table.renameRequested(key);
        else if (event.key === Qt.Key_Delete)
            table.deleteRequested(key);
        else
            return false;
        return true;
    }

    Connections {
        target: root.table

        function onWantedChanged() {
            root.goBack();
        }
    }

    Connections {
        target: root.table.rows
        function onAboutToChange() {
            root.holdPosition();
            // Qt 6.4 reuses a removed record's row for a new record in the same place without telling it the new
            // values; rows are reused for scrolling only.
            root.reuseItems = false;
        }
        function onSettled() {
            root.restorePosition();
            root.focusCurrent();
            root.reuseItems = true;
            root.goBack();
        }
    }

    HoverHandler {
        id: hover
        onPointChanged: place()
        onHoveredChanged: place()

        function place() {
            const row = hovered ? Math.floor((point.position.y + root.contentY - root.originY) / root.table.rowHeight) : -1;
            root.table.hoveredRow = row < root.count ? row : -1;
        }
    }

    TablePointer {
        parent: root.contentItem
        table: root.table
        body: root
        onMenuAsked: (row, x, y) => root.openMenu(row, x, y)
    }
}
