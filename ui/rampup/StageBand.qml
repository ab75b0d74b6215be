pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// The stages of a roadmap side by side, each as wide as it is long, with how far it has come.
Row {
    id: root

    /// Maps with name, facts, days, done and current.
    property var stages: []

    readonly property real days: {
        let sum = 0;
        for (let i = 0; i < stages.length; ++i)
            sum += stages[i].days;
        return Math.max(1, sum);
    }

    spacing: 3

    Repeater {
        model: root.stages.length

        Item {
            id: cell

            required property int index
            readonly property var stage: root.stages[index] ?? ({ name: "", facts: "", days: 0, done: 0, current: false })

            width: Math.max(2, (root.width - root.spacing * (root.stages.length - 1)) * stage.days / root.days)
            height: 44

            Accessible.role: Accessible.StaticText
            Accessible.name: stage.name + ", " + stage.facts

            OrvProgress {
                width: parent.width
                height: 6
                value: cell.stage.days > 0 ? cell.stage.done / cell.stage.days : 0
            }

            Text {
                y: 10
                width: parent.width - 4
                height: 18
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: cell.stage.name
                font: cell.stage.current ? Theme.smallStrong : Theme.small
                color: cell.stage.current ? Theme.text : Theme.text2
                Accessible.ignored: true
            }

            Text {
                y: 27
                width: parent.width - 4
                height: 16
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: cell.stage.facts
                font: Theme.microText
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
