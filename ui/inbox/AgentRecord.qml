pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// What was decided about the agent's drafts so far: two figures to a line, and the last over the whole width.
Item {
    id: root

    property list<choice> facts
    readonly property real column: (width - 24) / 2
    readonly property real line: 22

    implicitHeight: Math.ceil(facts.length / 2) * line

    Repeater {
        model: root.facts

        Item {
            id: fact

            required property choice modelData
            required property int index

            x: index % 2 * (root.column + 24)
            y: Math.floor(index / 2) * root.line
            width: index === root.facts.length - 1 && index % 2 === 0 ? root.width : root.column
            height: root.line
            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.label + ", " + modelData.detail

            Text {
                width: parent.width - figure.width - 8
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: fact.modelData.label
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }

            Text {
                id: figure
                x: parent.width - width
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: fact.modelData.detail
                font: Theme.smallStrong
                color: Theme.text
                Accessible.ignored: true
            }
        }
    }
}
