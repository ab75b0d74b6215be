import QtQuick
import Orvella.Design

/// Places a table's columns in the width there is, as the page declared them and the person arranged them.
QtObject {
    id: root

    property list<OrvColumn> columns
    required property TableLayout layout
    property real availableWidth: 0
    property real leftPadding: 0
    property real rightPadding: 0
    property real spacing: 16
    /// How far the table is scrolled sideways.
    property real scrollX: 0
    /// The right edge of the columns that stay in place, 0 when there are none.
    property real frozenWidth: 0
    /// The width that all columns and paddings need; more than `availableWidth` when the table scrolls sideways.
    property real contentWidth: 0
    /// The columns that show, from left to right.
    property list<OrvColumn> shown

    readonly property list<string> keys: {
        // Qt 6.4 cannot walk a list of QML types with for…of.
        const keys = [];
        for (let i = 0; i < columns.length; ++i)
            keys.push(columns[i].key);
        return keys;
    }

    /// Changes with what the page says of its columns while they are shown.
    readonly property string wanted: {
        let wanted = "";
        for (let i = 0; i < columns.length; ++i)
            wanted += columns[i].visible ? columns[i].preferredWidth + " " : "- ";
        return wanted;
    }

    onWantedChanged: place()
    onAvailableWidthChanged: place()
    onLeftPaddingChanged: place()
    onRightPaddingChanged: place()
    onColumnsChanged: place()
    onScrollXChanged: shift()
    // What is kept may have been read before anybody here listened.
    Component.onCompleted: place()

    readonly property Connections follower: Connections {
        target: root.layout
        function onChanged() {
            root.place();
        }
    }

    function shift() {
        for (let i = 0; i < columns.length; ++i)
            columns[i].shift = columns[i].frozen ? scrollX : 0;
    }

    function column(key: string): OrvColumn {
        for (let i = 0; i < columns.length; ++i) {
            if (columns[i].key === key)
                return columns[i];
        }
        return null;
    }

    function isChosen(column): bool {
        return layout.width(column.key) > 0;
    }

    function wantedWidth(column): real {
        return Math.max(column.minimumWidth, layout.width(column.key) || column.preferredWidth);
    }

    /// What the columns need at least: those that fill can shrink.
    function needed(list): real {
        const widths = list.map(column => column.fill && !isChosen(column) ? column.minimumWidth : wantedWidth(column));
        return widths.reduce((sum, width) => sum + width, leftPadding + rightPadding + spacing * Math.max(0, list.length - 1));
    }

    /// In the person's order, without those they hid and those there is no room for. What they asked for stays, and the
    /// table then scrolls sideways.
    function chosenColumns() {
        let list = [...layout.arranged(keys)].map(key => column(key)).filter(column => column.visible
            && (column.fixed || (layout.shown(column.key) ?? true)));
        const yielding = list.filter(column => column.yields > 0 && layout.shown(column.key) === undefined)
            .sort((a, b) => b.yields - a.yields);
        for (const column of yielding) {
            if (needed(list) <= availableWidth)
                break;
            list = list.filter(other => other !== column);
        }
        return list;
    }

    function place() {
        const list = chosenColumns();
        const widths = list.map(column => wantedWidth(column));
        const used = widths.reduce((sum, width) => sum + width, leftPadding + rightPadding + spacing * Math.max(0, list.length - 1));
        const rest = spread(list, widths, availableWidth - used);
        if (rest > 0)
            widen(list, widths, rest);
        let x = leftPadding;
        let frozen = 0;
        for (let i = 0; i < list.length; ++i) {
            list[i].x = x;
            list[i].width = widths[i];
            x += widths[i] + spacing;
            if (list[i].frozen)
                frozen = x;
        }
        for (let i = 0; i < columns.length; ++i)
            columns[i].shown = list.includes(columns[i]);
        shown = list;
        frozenWidth = frozen;
        contentWidth = x - spacing + rightPadding;
    }

    /// Shares `room`, which may be negative, among the columns that fill; one that reaches its limit leaves the rest
    /// to the others. Returns what nobody took.
    function spread(list, widths, room: real): real {
        let open = [];
        for (let i = 0; i < list.length; ++i) {
            if (list[i].fill && !isChosen(list[i]))
                open.push(i);
        }
        while (open.length > 0 && Math.abs(room) >= 1) {
            const share = room / open.length;
            const still = [];
            for (const i of open) {
                const width = Math.round(Math.min(Math.max(widths[i] + share, list[i].minimumWidth), list[i].maximumWidth));
                room -= width - widths[i];
                if (width > list[i].minimumWidth && width < list[i].maximumWidth)
                    still.push(i);
                widths[i] = width;
            }
            if (still.length === open.length)
                break;
            open = still;
        }
        return room;
    }

    /// In a wide window the columns that fill are at their limits; the others then share the rest, so that the last one
    /// still ends at the table's edge.
    function widen(list, widths, room: real) {
        const open = [];
        for (let i = 0; i < list.length; ++i) {
            if (!list[i].fill && !isChosen(list[i]))
                open.push(i);
        }
        for (const i of open)
            widths[i] += Math.floor(room / open.length);
    }

    /// Gives a column the width the person wants, within its own limits.
    function resize(column, width: real) {
        layout.setWidth(column.key, Math.round(Math.max(column.minimumWidth, width)));
    }

    /// Puts a column before the one that shows there, `by` places on; those that are fixed keep theirs.
    function step(column, by: int) {
        const free = movable();
        const to = free.indexOf(column) + by;
        if (free.includes(column) && to >= 0 && to < free.length)
            moveTo(column, by < 0 ? free[to] : free[to + 1] ?? after(free[to]));
    }

    /// Puts a column before another; before nothing is the end.
    function moveTo(column, before) {
        layout.move(keys, column.key, before ? before.key : "");
    }

    function showing(wanted) {
        const list = [];
        for (let i = 0; i < shown.length; ++i) {
            if (wanted(shown[i]))
                list.push(shown[i]);
        }
        return list;
    }

    function movable() {
        return showing(column => !column.fixed);
    }

    /// Those that hold something to read.
    function readable() {
        return showing(column => !column.titleHidden);
    }

    function after(column) {
        for (let i = 0; i < shown.length - 1; ++i) {
            if (shown[i] === column)
                return shown[i + 1];
        }
        return null;
    }
}
