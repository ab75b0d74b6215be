pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// Labels and values, one to a line, under a heading.
Column {
    id: root

    required property string title
    /// Label and detail of each.
    property list<choice> facts
    /// A way on, at the heading's end; empty for none.
    property string linkText: ""

    signal linkChosen()

    Item {
        visible: root.title !== "" || root.linkText !== ""
        width: root.width
        height: 34

        Text {
            height: 26
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.title
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        OrvLink {
            visible: text !== ""
            anchors.right: parent.right
            height: 26
            text: root.linkText
            onClicked: root.linkChosen()
        }
    }

    Repeater {
        model: root.facts

        Item {
            id: line

            required property choice modelData

            width: root.width
            height: 32

            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.label + ", " + modelData.detail

            OrvDivider {
                width: parent.width
            }

            Text {
                id: label
                height: line.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: line.modelData.label
                font: Theme.body
                color: Theme.text2
                Accessible.ignored: true
            }

            Text {
                id: detail
                x: label.width + 16
                width: parent.width - x
                height: line.height
                horizontalAlignment: Text.AlignRight
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: line.modelData.detail
                font: Theme.body
                color: Theme.text
                Accessible.ignored: true

                OrvTooltip {
                    text: detail.truncated ? detail.text : ""
                }
            }
        }
    }
}
