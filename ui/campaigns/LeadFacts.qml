import QtQuick
import Orvella.Design

/// Labels and values, one to a line.
Column {
    id: root

    /// Label and detail of each.
    property list<choice> facts

    spacing: 6

    Repeater {
        model: root.facts

        Item {
            id: line

            required property choice modelData

            width: root.width
            height: Math.max(20, value.implicitHeight)

            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.label + ", " + modelData.detail

            Text {
                width: 116
                elide: Text.ElideRight
                // As the value's, beside which it stands.
                lineHeightMode: Text.FixedHeight
                lineHeight: 20
                textFormat: Text.PlainText
                text: line.modelData.label
                font: Theme.body
                color: Theme.text3
                Accessible.ignored: true
            }

            Text {
                id: value
                x: 124
                width: parent.width - x
                wrapMode: Text.Wrap
                lineHeightMode: Text.FixedHeight
                lineHeight: 20
                textFormat: Text.PlainText
                text: line.modelData.detail
                font: Theme.body
                color: Theme.text
                Accessible.ignored: true
            }
        }
    }
}
