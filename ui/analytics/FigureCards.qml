pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Figures

/// The few figures of today, large, side by side in one frame.
Rectangle {
    id: root

    property list<figure> figures
    /// An icon for each figure.
    property list<string> icons

    implicitHeight: 102
    radius: Theme.radiusCard
    color: Theme.surface
    border { width: 1; color: Theme.border }

    Row {
        anchors.fill: parent

        Repeater {
            model: root.figures

            Item {
                id: card

                required property figure modelData
                required property int index

                width: root.width / root.figures.length
                height: root.height
                clip: true

                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.spoken

                Rectangle {
                    visible: card.index > 0
                    width: 1
                    height: parent.height
                    color: Theme.border
                }

                OrvIcon {
                    x: 16
                    y: 16
                    size: 14
                    name: root.icons[card.index] ?? ""
                    color: Theme.text3
                }

                Text {
                    x: 38
                    y: 13
                    height: 20
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: card.modelData.title
                    font: Theme.bodyStrong
                    color: Theme.text2
                    Accessible.ignored: true
                }

                Text {
                    id: value
                    x: 16
                    y: 36
                    height: 30
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: card.modelData.value
                    font: Theme.figure
                    color: Theme.text
                    Accessible.ignored: true
                }

                Text {
                    anchors { baseline: value.baseline; left: value.right; leftMargin: 8 }
                    textFormat: Text.PlainText
                    text: card.modelData.unit
                    font: Theme.bodyStrong
                    color: Theme.text2
                    Accessible.ignored: true
                }

                Row {
                    x: 16
                    y: 68
                    height: 20

                    Text {
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        textFormat: Text.PlainText
                        text: card.modelData.detail
                            + (card.modelData.detail !== "" && card.modelData.warning !== "" ? " · " : "")
                        font: Theme.small
                        color: Theme.text2
                        Accessible.ignored: true
                    }

                    Text {
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        textFormat: Text.PlainText
                        text: card.modelData.warning
                        font: Theme.small
                        color: Theme.warning
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
