pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Figures

/// The figures of one inbox, four to a line.
Grid {
    id: root

    property list<figure> figures

    columns: 4
    rowSpacing: 12

    Repeater {
        model: root.figures

        Item {
            id: cell

            required property figure modelData
            required property int index
            readonly property bool first: index % root.columns === 0

            // The second has the longest words, the first has no rule beside it.
            width: Math.floor(root.width / root.columns) + [-10, 10, 0, 0][index % root.columns]
            height: 42

            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.spoken

            Rectangle {
                visible: !cell.first
                width: 1
                height: parent.height
                color: Theme.border
            }

            Text {
                x: cell.first ? 0 : 8
                width: parent.width - x
                height: 18
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: cell.modelData.title
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }

            Text {
                x: cell.first ? 0 : 8
                y: 18
                height: 24
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: cell.modelData.value
                font: Theme.pageTitle
                color: cell.modelData.warning !== "" ? Theme.negative : Theme.text
                Accessible.ignored: true
            }
        }
    }
}
