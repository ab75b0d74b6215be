import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// What is wrong in one email of the wall, and the ways to where it is mended.
Pressable {
    id: root

    required property var model
    required property ProofWall wall

    readonly property bool current: model.current

    implicitHeight: column.height + 20
    text: model.name

    Accessible.role: Accessible.Grouping
    Accessible.name: model.name + ": " + model.findings.join(" ")
    onClicked: wall.current = model.id

    Rectangle {
        anchors.fill: parent
        color: root.current ? Theme.selected : root.hovered ? Theme.hover : "transparent"
    }

    Rectangle {
        visible: root.current
        width: 2
        height: parent.height
        color: Theme.accentText
    }

    OrvIcon {
        x: 19
        y: 13
        size: 14
        name: "data-warning"
        color: Theme.warning
    }

    Column {
        id: column
        x: 41
        y: 10
        width: root.width - x - 20

        Text {
            width: parent.width
            height: 20
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.model.name
            font: Theme.bodyStrong
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            width: parent.width
            wrapMode: Text.Wrap
            maximumLineCount: root.current ? 12 : 3
            elide: Text.ElideRight
            lineHeightMode: Text.FixedHeight
            lineHeight: 16
            textFormat: Text.PlainText
            text: root.model.findings.join(" ")
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }

        Row {
            visible: root.current
            spacing: 12

            OrvLink {
                text: "Open the lead"
                onClicked: root.wall.openLead(root.model.id)
            }

            OrvLink {
                text: "Go to the text"
                onClicked: root.wall.openText(root.model.id)
            }
        }
    }

    OrvDivider {
        y: root.height - 1
        width: root.width
    }
}
