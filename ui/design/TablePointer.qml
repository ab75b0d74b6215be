import QtQuick

/// One mouse area behind all rows of a table: rows that each had their own would cost more than all their cells.
MouseArea {
    id: root

    required property TableCore table
    required property ListView body

    /// The person asked for a row's menu.
    signal menuAsked(int row, real x, real y)

    z: -1
    y: body.originY
    width: body.contentWidth
    height: body.count * table.rowHeight
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    // A list that a mouse drags along behaves like a telephone.
    preventStealing: true

    function rowAt(y: real): int {
        return Math.floor(y / table.rowHeight);
    }

    onPressed: mouse => {
        const row = rowAt(mouse.y);
        const from = table.currentKey;
        body.forceActiveFocus(Qt.MouseFocusReason);
        table.rows.setCurrentRow(row);
        if (mouse.button === Qt.RightButton) {
            if (!table.rows.isBusy(table.currentKey))
                menuAsked(row, mouse.x, mouse.y - row * table.rowHeight);
        } else if (table.tickable && (mouse.modifiers & Qt.ShiftModifier)) {
            table.tickExtended(from, table.currentKey);
        } else if (table.tickable && onTick(mouse)) {
            table.tickToggled(table.currentKey);
        }
    }
    onClicked: mouse => {
        if (mouse.button === Qt.LeftButton && mouse.modifiers === Qt.NoModifier && !(table.tickable && onTick(mouse)))
            table.opened(table.currentKey);
    }

    function onTick(mouse): bool {
        return (mouse.modifiers & Qt.ControlModifier) || mouse.x - body.contentX < table.sidePadding + 28;
    }
}
