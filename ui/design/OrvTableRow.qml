import QtQuick

/// One row of an OrvTable, and what a page's delegate is made of. Its children are cells; they place themselves by
/// their column.
Rectangle {
    id: root

    // By name: a cast to a QML type makes Qt 6.4 complain that the component is not ready.
    readonly property var view: ListView.view
    readonly property TableCore table: view ? view.table : null
    required property int index
    /// What tells the record apart, for screen readers: its name, its status.
    property string label: ""
    readonly property string key: {
        table.rows.revision;
        return table.rows.keyAt(index);
    }
    readonly property bool ticked: {
        table.rows.marks;
        return table.rows.isTicked(key);
    }
    /// It stands out on the `selected` ground.
    readonly property bool marked: ticked || (key !== "" && key === table.openKey)
    readonly property bool busy: {
        table.rows.marks;
        return table.rows.isBusy(key);
    }
    readonly property bool current: table.currentRow === index
    readonly property bool hovered: table.hoveredRow === index
    /// The person points at the row or has come to it with the keyboard: its actions show.
    readonly property bool lively: hovered || (current && activeFocus)
    default property alias cells: content.data

    width: Math.max(table.width, table.placed.contentWidth)
    height: table.rowHeight
    color: marked ? Theme.selected : hovered ? Theme.hover : Theme.surface

    Accessible.role: Accessible.Row
    Accessible.name: "row " + (index + 1).toLocaleString(Qt.locale(), "f", 0) + " of "
        + table.recordCount.toLocaleString(Qt.locale(), "f", 0) + ", " + label + (busy ? ", busy" : "")
    Accessible.description: current && table.cellColumn !== null ? table.cellColumn.title + ", " + table.rows.textAt(index, table.cellColumn.key) : ""
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.selectable: table.tickable
    Accessible.selected: ticked
    Accessible.onPressAction: table.opened(key)
    Accessible.onToggleAction: table.tickToggled(key)

    /// What the cell in a column would take.
    function naturalWidth(column: OrvColumn): real {
        for (let i = 0; i < content.children.length; ++i) {
            const cell = content.children[i];
            if (cell.column === column)
                return Math.ceil(cell.naturalWidth);
        }
        return 0;
    }

    // A screen reader follows the focus, so it sits on the row itself; the list handles the keys that rows let through.
    onCurrentChanged: focus = current
    Component.onCompleted: focus = current
    ListView.onPooled: focus = false
    ListView.onReused: focus = current

    Item {
        id: content
        width: root.width
        height: root.height
        opacity: root.busy ? 0.6 : 1

        // The cells of other columns pass behind those that stay in place.
        Rectangle {
            visible: root.table.placed.frozenWidth > 0 && root.table.scrollX > 0
            z: 0.5
            x: root.table.scrollX
            width: root.table.placed.frozenWidth
            height: root.height
            color: root.color
        }
    }

    TableTick {
        visible: root.table.tickable
        x: root.table.sidePadding + root.table.scrollX
        anchors.verticalCenter: parent.verticalCenter
        checked: root.ticked
    }

    Rectangle {
        visible: root.marked
        x: root.table.scrollX
        width: 2
        height: root.height
        color: Theme.accentText
    }

    Rectangle {
        y: root.height - height
        width: root.width
        height: 1
        color: Theme.border
    }

    // The current cell, once somebody has moved along the row.
    Rectangle {
        readonly property OrvColumn column: root.table.cellColumn

        visible: column !== null && column.shown && root.current && root.activeFocus && root.table.ringShown
        x: column ? column.x + column.shift - 6 : 0
        y: 6
        z: 2
        width: column ? column.width + 12 : 0
        height: root.height - 13
        color: "transparent"
        radius: Theme.radiusTag
        border { width: 1; color: Theme.focus }
    }

    Rectangle {
        visible: root.current && root.activeFocus && root.table.ringShown
        x: root.table.scrollX + 2
        y: 2
        width: root.table.width - 4
        height: root.height - 5
        color: "transparent"
        radius: Theme.radiusControl
        border { width: 2; color: Theme.focus }
    }
}
