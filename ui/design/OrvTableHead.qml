pragma ComponentBehavior: Bound
import QtQuick

/// The sticky head of an OrvTable: titles, sort, column widths and the tick for all rows. One stop for Tab; Left and
/// Right move over the titles, Enter sorts, Alt+Left and Alt+Right resize.
FocusScope {
    id: root

    required property TableCore table
    property int currentColumn: 0

    height: 32
    activeFocusOnTab: true
    clip: true

    Accessible.role: Accessible.Row
    Accessible.name: "Column titles"

    function step(by: int) {
        const columns = table.columns;
        for (let i = currentColumn + by; i >= 0 && i < columns.length; i += by) {
            if (columns[i].visible) {
                currentColumn = i;
                return;
            }
        }
    }

    /// Highest first, then lowest first, then the service's order again.
    function sortBy(column) {
        if (!column.sortable)
            return;
        if (table.sortKey !== column.key)
            table.sortRequested(column.key, true);
        else if (table.sortDescending)
            table.sortRequested(column.key, false);
        else
            table.sortRequested("", true);
    }

    function resize(column, width: real) {
        if (!column.resizable)
            return;
        table.placed.resize(column, width);
        table.columnResized(column.key, column.width);
    }

    Keys.onPressed: event => {
        const column = table.columns[currentColumn];
        const alt = event.modifiers & Qt.AltModifier;
        event.accepted = true;
        if (event.key === Qt.Key_Left)
            alt ? resize(column, column.width - 16) : step(-1);
        else if (event.key === Qt.Key_Right)
            alt ? resize(column, column.width + 16) : step(1);
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
            sortBy(column);
        else
            event.accepted = false;
    }

    Rectangle {
        width: root.width
        height: root.height
        color: Theme.bg
    }

    TableTick {
        visible: root.table.tickable
        x: root.table.sidePadding
        anchors.verticalCenter: parent.verticalCenter
        z: 2
        checked: root.table.tickedKeys.length > 0
        mixed: root.table.tickedKeys.length < root.table.rows.count
        Accessible.role: Accessible.CheckBox
        Accessible.name: "Select all"
        Accessible.checkable: true
        Accessible.checked: checked && !mixed
        Accessible.onPressAction: root.table.tickAllToggled()
        Accessible.onToggleAction: root.table.tickAllToggled()

        MouseArea {
            anchors { fill: parent; margins: -6 }
            onClicked: root.table.tickAllToggled()
        }
    }

    Repeater {
        model: root.table.columns.length

        TableHeadCell {
            required property int index

            column: root.table.columns[index]
            x: column.x + (column.frozen ? 0 : -root.table.scrollX)
            z: column.frozen ? 1 : 0
            height: root.height
            sorted: root.table.sortKey === column.key
            descending: root.table.sortDescending
            ringShown: root.activeFocus && root.table.ringShown && root.currentColumn === index
            focus: root.currentColumn === index
            onPressed: root.sortBy(column)
            onDragged: width => root.resize(column, width)
        }
    }

    Rectangle {
        y: root.height - 1
        width: root.width
        height: 1
        color: Theme.border
    }

    Rectangle {
        width: root.width
        height: 1
        color: Theme.border
    }
}
