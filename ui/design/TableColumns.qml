import QtQuick

/// Places a table's columns in the width there is.
QtObject {
    id: root

    property list<OrvColumn> columns
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

    function shift() {
        // Qt 6.4 cannot walk a list of QML types with for…of.
        for (let i = 0; i < columns.length; ++i)
            columns[i].shift = columns[i].frozen ? scrollX : 0;
    }

    function wantedWidth(column): real {
        const wanted = column.chosenWidth > 0 ? column.chosenWidth : column.preferredWidth;
        return Math.max(column.minimumWidth, wanted);
    }

    function place() {
        const shown = [];
        let used = leftPadding + rightPadding;
        for (let i = 0; i < columns.length; ++i) {
            if (columns[i].visible)
                shown.push(columns[i]);
        }
        used += spacing * Math.max(0, shown.length - 1);
        const widths = shown.map(column => wantedWidth(column));
        used = widths.reduce((sum, width) => sum + width, used);
        const rest = spread(shown, widths, availableWidth - used);
        if (rest > 0)
            widen(shown, widths, rest);
        let x = leftPadding;
        let frozen = 0;
        for (let i = 0; i < shown.length; ++i) {
            shown[i].x = x;
            shown[i].width = widths[i];
            x += widths[i] + spacing;
            if (shown[i].frozen)
                frozen = x;
        }
        frozenWidth = frozen;
        contentWidth = x - spacing + rightPadding;
    }

    /// Shares `room`, which may be negative, among the columns that fill; one that reaches its limit leaves the rest
    /// to the others. Returns what nobody took.
    function spread(shown, widths, room: real): real {
        let open = [];
        for (let i = 0; i < shown.length; ++i) {
            if (shown[i].fill && shown[i].chosenWidth === 0)
                open.push(i);
        }
        while (open.length > 0 && Math.abs(room) >= 1) {
            const share = room / open.length;
            const still = [];
            for (const i of open) {
                const width = Math.round(Math.min(Math.max(widths[i] + share, shown[i].minimumWidth), shown[i].maximumWidth));
                room -= width - widths[i];
                if (width > shown[i].minimumWidth && width < shown[i].maximumWidth)
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
    function widen(shown, widths, room: real) {
        const open = [];
        for (let i = 0; i < shown.length; ++i) {
            if (!shown[i].fill && shown[i].chosenWidth === 0)
                open.push(i);
        }
        for (const i of open)
            widths[i] += Math.floor(room / open.length);
    }

    /// Gives a column the width the person wants, within its own limits.
    function resize(column, width: real) {
        column.chosenWidth = Math.round(Math.max(column.minimumWidth, width));
        place();
    }
}
