pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Setup

/// How much of a run is done, in words and as one bar.
Item {
    id: root

    required property SetupProjectStore store
    readonly property list<choice> parts: store.runParts
    readonly property list<choice> filled: [...parts].filter(part => part.count > 0)
    readonly property int whole: [...parts].reduce((sum, part) => sum + part.count, 0)

    function ink(tone: string): color {
        return tone === "positive" ? Theme.positive : tone === "accent" ? Theme.accentText
             : tone === "negative" ? Theme.negative : tone === "stopped" ? Theme.borderField : Theme.borderControl;
    }

    implicitHeight: 58

    Text {
        id: headline
        x: Theme.pageSide
        y: 10
        textFormat: Text.PlainText
        text: root.store.runHeadline
        font: Theme.paneTitle
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Text {
        x: headline.x + headline.width + 16
        y: 12
        width: legend.x - x - 16
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.store.runFacts
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        id: legend
        x: root.width - width - Theme.pageSide
        y: 12
        spacing: 16

        Repeater {
            model: root.parts

            Row {
                id: part

                required property choice modelData

                spacing: 6
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.label + " " + modelData.count

                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 8
                    height: 8
                    radius: part.modelData.key === "negative" ? 1 : 4
                    color: root.ink(part.modelData.key)
                }

                Text {
                    textFormat: Text.PlainText
                    text: part.modelData.label + " " + part.modelData.count
                    font: Theme.small
                    color: Theme.text2
                    Accessible.ignored: true
                }
            }
        }
    }

    Row {
        id: bar
        x: Theme.pageSide
        y: 38
        width: root.width - 2 * x
        spacing: 3

        Repeater {
            model: root.filled

            Rectangle {
                required property choice modelData

                width: Math.max(4, (bar.width - bar.spacing * (root.filled.length - 1)) * modelData.count / Math.max(1, root.whole))
                height: 6
                radius: 3
                color: root.ink(modelData.key)
            }
        }
    }
}
