pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// The series of a chart; each is a switch.
Row {
    id: root

    required property ChartPlot plot

    signal toggled(string key)

    spacing: 4

    // By number, so that an entry keeps the focus when the series it switches comes back changed.
    Repeater {
        model: root.plot.seriesCount

        Pressable {
            id: entry

            required property int index

            readonly property var series: root.plot.legend[index]

            implicitWidth: words.implicitWidth
            implicitHeight: 26
            activeFocusOnTab: true
            text: series?.label ?? ""

            Accessible.role: Accessible.CheckBox
            Accessible.checkable: true
            Accessible.checked: series?.shown ?? false
            Accessible.focusable: true
            Accessible.onToggleAction: clicked()
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
            Keys.onSpacePressed: clicked()
            onClicked: root.toggled(series.key)

            Rectangle {
                anchors.fill: parent
                radius: Theme.radiusControl
                color: entry.hovered ? Theme.hover : "transparent"
                FocusRing { visible: entry.activeFocus && InputMode.keyboard; inset: true }
            }

            Row {
                id: words
                height: parent.height
                leftPadding: 8
                rightPadding: 8
                spacing: 6

                ChartSwatch {
                    anchors.verticalCenter: parent.verticalCenter
                    plot: root.plot
                    index: entry.index
                    opacity: entry.series?.shown ? 1 : 0.45
                }

                Text {
                    height: entry.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: entry.text
                    font: Theme.small
                    color: entry.series?.shown ? Theme.text : Theme.text3
                }
            }
        }
    }
}
