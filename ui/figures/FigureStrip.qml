pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Figures

/// The figures of a range side by side; in two lines where one is too narrow for their words.
Flow {
    id: root

    property list<figure> figures

    /// A few have room for all of their words, in two lines where need be.
    readonly property bool few: figures.length <= 3
    readonly property int inLine: width < 940 && !few ? Math.ceil(figures.length / 2) : Math.max(1, figures.length)
    // The last one has the longest words.
    readonly property int lastExtra: 32

    spacing: 0

    Repeater {
        model: root.figures

        Item {
            id: cell

            required property figure modelData
            required property int index
            readonly property bool first: index % root.inLine === 0

            width: Math.floor((root.width - root.lastExtra) / root.inLine)
                + (index === root.figures.length - 1 ? root.lastExtra : 0)
            height: Math.max(64, detail.y + detail.height + 6)
            clip: true

            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.spoken

            Rectangle {
                visible: !cell.first
                width: 1
                height: cell.height - 6
                color: Theme.border
            }

            Text {
                x: cell.first ? 0 : 12
                height: 18
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: cell.modelData.title
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }

            Text {
                id: value
                x: cell.first ? 0 : 12
                y: 18
                height: 22
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: cell.modelData.value
                font: Theme.pageTitle
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                anchors { baseline: value.baseline; left: value.right; leftMargin: 6 }
                textFormat: Text.PlainText
                text: cell.modelData.unit
                font: Theme.smallStrong
                color: Theme.text2
                Accessible.ignored: true
            }

            Text {
                id: detail
                x: cell.first ? 0 : 12
                y: 40
                width: parent.width - x - (root.few ? 24 : 4)
                height: root.few ? Math.max(18, implicitHeight) : 18
                verticalAlignment: Text.AlignVCenter
                wrapMode: root.few ? Text.Wrap : Text.NoWrap
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: cell.modelData.detail
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
