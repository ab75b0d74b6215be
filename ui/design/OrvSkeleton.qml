pragma ComponentBehavior: Bound
import QtQuick

/// Grey bars where rows will be, in the geometry of the real columns. Still, and only after 100 ms: an answer that
/// comes at once must not flash them.
Item {
    id: root

    /// The table whose columns the bars stand in, as it has placed them; without it there is one bar a row.
    property TableCore table: null
    readonly property int columnCount: table !== null ? table.columns.length : 0
    property real rowHeight: 52
    property real topInset: 32
    property bool twoLines: rowHeight >= 52
    property bool shown: false

    Accessible.role: Accessible.Indicator
    Accessible.name: "Loading"
    clip: true

    Timer {
        interval: Theme.skeletonDelay
        running: root.visible && !root.shown
        onTriggered: root.shown = true
    }

    // Nobody waits to hear of what is there in a moment.
    Timer {
        interval: 1500
        running: root.visible
        onTriggered: Announcer.say(root.Accessible.name, "state")
    }
    onVisibleChanged: {
        if (!visible)
            shown = false;
    }

    Repeater {
        model: root.shown ? Math.max(0, Math.ceil((root.height - root.topInset) / root.rowHeight)) : 0

        Item {
            id: line

            required property int index

            y: root.topInset + index * root.rowHeight
            width: root.width
            height: root.rowHeight

            Repeater {
                model: Math.max(1, root.columnCount)

                Item {
                    id: cell

                    required property int index
                    readonly property OrvColumn column: index < root.columnCount ? root.table.columns[index] : null
                    readonly property real room: column ? column.width : root.width - 48
                    // Uneven on purpose: bars of one length look like a table of nothing.
                    readonly property real part: [0.62, 0.48, 0.7, 0.55][(line.index + index * 3) % 4]
                    readonly property bool rightAligned: column !== null && column.alignment === Text.AlignRight

                    visible: !column || column.shown
                    x: column ? column.x : 24
                    width: room
                    height: line.height

                    Rectangle {
                        x: cell.rightAligned ? cell.width - width : 0
                        y: cell.index === 0 && root.twoLines ? 14 : (cell.height - height) / 2
                        width: Math.min(280, cell.room * cell.part)
                        height: 10
                        radius: 3
                        color: Theme.pressed
                    }

                    Rectangle {
                        visible: cell.index === 0 && root.twoLines
                        y: 31
                        width: Math.min(180, cell.room * cell.part * 0.7)
                        height: 8
                        radius: 3
                        color: Theme.pressed
                    }
                }
            }

            Rectangle {
                y: line.height - 1
                width: line.width
                height: 1
                color: Theme.border
            }
        }
    }
}
