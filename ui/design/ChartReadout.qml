pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// What a chart's figures are on the day the person is at: a cursor, a point on each line and a panel beside them.
Item {
    id: root

    required property ChartPlot plot
    /// Of the same days, whose figures are told as well.
    property ChartPlot other: null

    readonly property rect area: plot.currentArea

    ChartStroke {
        visible: root.plot.kind === "line"
        x: Math.round(root.area.x)
        y: root.area.y
        width: 1
        height: root.area.height
        thickness: 1
        series: 2
        color: Theme.borderControl
    }

    Repeater {
        model: root.plot.seriesCount

        Rectangle {
            required property int index

            readonly property real at: root.plot.readings[index]?.y ?? NaN

            visible: !isNaN(at)
            x: root.area.x - width / 2
            y: (visible ? at : 0) - height / 2
            width: 9
            height: 9
            radius: 4.5
            color: root.plot.legend[index]?.color ?? "transparent"
            border { width: 1.5; color: Theme.surface }
        }
    }

    OrvFloat {
        id: panel

        readonly property real beyond: root.area.x + root.area.width + 14
        readonly property real before: root.area.x - width - 14

        x: Math.round(beyond + width <= root.width ? beyond : Math.max(0, before))
        y: root.area.y + 14
        radius: Theme.radiusCard
        width: Math.max(rows.width, note.visible ? note.implicitWidth : 0) + 24
        height: rows.height + 20 + (note.visible ? 24 : 0)

        Column {
            id: rows
            x: 12
            y: 10
            spacing: 2

            Text {
                bottomPadding: 4
                textFormat: Text.PlainText
                text: root.plot.currentTitle
                font: Theme.smallStrong
                color: Theme.text2
                Accessible.ignored: true
            }

            Repeater {
                model: root.plot.seriesCount + (root.other ? root.other.seriesCount : 0)

                Item {
                    id: row

                    required property int index
                    readonly property ChartPlot plot: index < root.plot.seriesCount ? root.plot : root.other
                    readonly property int series: index < root.plot.seriesCount ? index : index - root.plot.seriesCount

                    visible: plot.legend[series]?.shown ?? false
                    implicitWidth: label.x + label.width + 24 + Math.max(widest.width, value.implicitWidth)
                    implicitHeight: 18

                    ChartSwatch {
                        id: swatch
                        anchors.verticalCenter: parent.verticalCenter
                        plot: row.plot
                        index: row.series
                    }

                    Text {
                        id: label
                        x: swatch.width + 8
                        height: row.height
                        verticalAlignment: Text.AlignVCenter
                        textFormat: Text.PlainText
                        text: row.plot.legend[row.series]?.label ?? ""
                        font: Theme.small
                        color: Theme.text2
                        Accessible.ignored: true
                    }

                    Text {
                        id: value
                        x: rows.width - width
                        height: row.height
                        verticalAlignment: Text.AlignVCenter
                        textFormat: Text.PlainText
                        text: row.plot.readings[row.series]?.text ?? ""
                        font: Theme.smallStrong
                        color: Theme.text
                        Accessible.ignored: true
                    }
                }
            }
        }

        OrvDivider {
            visible: note.visible
            y: note.y - 6
            width: panel.width
        }

        Text {
            id: note
            visible: text !== ""
            x: 12
            y: rows.y + rows.height + 12
            height: 16
            textFormat: Text.PlainText
            text: root.plot.currentNote
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }

        // The panel keeps its width from day to day.
        TextMetrics {
            id: widest
            font: Theme.smallStrong
            text: root.plot.widestValue
        }
    }
}
