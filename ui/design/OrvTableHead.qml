import QtQuick
import QtQml

/// The sticky head of an OrvTable: titles, sort, columns and the tick for all rows. One stop for Tab; Left and Right move
/// over the titles, Enter sorts, Alt+Left and Alt+Right resize, Ctrl+Left and Ctrl+Right move the column itself.
FocusScope {
    id: root

    required property TableCore table
    property OrvColumn at: null
    readonly property OrvColumn current: at !== null && at.shown ? at : table.placed.shown.length > 0 ? table.placed.shown[0] : null
    /// What a dragged title would go before; null is the end of those that can move.
    property OrvColumn carried: null
    property OrvColumn dropBefore: null

    /// The person wants the column as wide as what is in it.
    signal fitRequested(OrvColumn column)

    height: 32
    activeFocusOnTab: true
    clip: true

    Accessible.role: Accessible.Row
    Accessible.name: "Column titles"

    function step(by: int) {
        const shown = table.placed.shown;
        for (let i = 0; i < shown.length; ++i) {
            if (shown[i] === current && shown[i + by]) {
                at = shown[i + by];
                return;
            }
        }
    }

    /// Highest first, then lowest first, then the service's order again.
    function sortBy(column: OrvColumn) {
        if (!column.sortable)
            return;
        if (table.sortKey !== column.key)
            table.sortBy(column.key, true);
        else if (table.sortDescending)
            table.sortBy(column.key, false);
        else
            table.sortBy("", true);
    }

    function resize(column: OrvColumn, width: real) {
        if (column.resizable)
            table.placed.resize(column, width);
    }

    function carry(column: OrvColumn, x: real) {
        if (column.fixed)
            return;
        carried = column;
        const free = table.placed.movable();
        dropBefore = free.find(other => x + table.scrollX < other.x + other.width / 2) ?? table.placed.after(free[free.length - 1]);
    }

    function drop() {
        const column = carried;
        carried = null;
        if (column)
            table.placed.moveTo(column, dropBefore);
    }

    function openMenu(column: OrvColumn) {
        at = column;
        menu.openIn(root, Math.max(0, column.x + column.shift - table.scrollX), height);
    }

    Keys.onShortcutOverride: event => {
        const sideways = event.key === Qt.Key_Left || event.key === Qt.Key_Right;
        event.accepted = sideways && (event.modifiers & (Qt.AltModifier | Qt.ControlModifier)) !== 0;
    }
    Keys.onPressed: event => {
        const by = event.key === Qt.Key_Left ? -1 : event.key === Qt.Key_Right ? 1 : 0;
        const menuAsked = event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier);
        const sortAsked = event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space;
        event.accepted = current !== null && (by !== 0 || menuAsked || sortAsked);
        if (!event.accepted)
            return;
        if (menuAsked)
            openMenu(current);
        else if (sortAsked)
            sortBy(current);
        else if (event.modifiers & Qt.AltModifier)
            resize(current, current.width + 16 * by);
        else if (event.modifiers & Qt.ControlModifier)
            table.placed.step(current, by);
        else
            step(by);
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
        Accessible.name: root.table.selectAllText
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
            carried: root.carried === column
            ringShown: root.activeFocus && root.table.ringShown && root.current === column
            focus: root.current === column
            onPressed: root.sortBy(column)
            onDragged: width => root.resize(column, width)
            onFitRequested: root.fitRequested(column)
            onCarriedTo: x => root.carry(column, x)
            onDropped: root.drop()
            onMenuRequested: root.openMenu(column)
        }
    }

    Rectangle {
        readonly property real place: root.dropBefore !== null ? root.dropBefore.x - root.table.placed.spacing / 2
            : root.table.placed.contentWidth - root.table.placed.rightPadding

        visible: root.carried !== null
        x: place - root.table.scrollX - 1
        z: 2
        width: 2
        height: root.height
        color: Theme.accentText
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

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Columns"

            // By number: the entries stay while what they say changes.
            Instantiator {
                model: root.table.columns.length

                OrvMenuItem {
                    required property int index
                    readonly property OrvColumn column: root.table.columns[index]

                    visible: root.table.choosable && column.visible && !column.fixed
                    text: column.title
                    tickable: true
                    ticked: column.shown
                    onTriggered: root.table.columnLayout.setShown(column.key, !column.shown)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }

            OrvMenuSeparator {
                visible: root.table.choosable
            }

            OrvMenuItem {
                text: "Fit to content"
                enabled: root.current !== null && root.current.resizable
                onTriggered: root.fitRequested(root.current)
            }

            OrvMenuItem {
                text: "Move left"
                shortcutText: "Ctrl Left"
                enabled: root.current !== null && !root.current.fixed
                onTriggered: root.table.placed.step(root.current, -1)
            }

            OrvMenuItem {
                text: "Move right"
                shortcutText: "Ctrl Right"
                enabled: root.current !== null && !root.current.fixed
                onTriggered: root.table.placed.step(root.current, 1)
            }

            OrvMenuSeparator {}

            OrvMenuItem {
                text: "Reset columns"
                iconName: "edit-undo"
                onTriggered: root.table.columnLayout.reset()
            }
        }
    }
}
