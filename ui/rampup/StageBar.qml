pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// A bar for each stage of a roadmap, as long as its days, filled as far as they are over.
Row {
    id: root

    /// Maps with days and done.
    property var stages: []
    property color fill: Theme.accentText
    property color rest: Theme.pressed
    property real barHeight: 4

    readonly property real days: {
        let sum = 0;
        for (let i = 0; i < stages.length; ++i)
            sum += stages[i].days;
        return Math.max(1, sum);
    }

    spacing: 3

    Repeater {
        model: root.stages.length

        OrvProgress {
            required property int index
            readonly property var stage: root.stages[index] ?? ({ days: 0, done: 0 })

            width: Math.max(2, (root.width - root.spacing * (root.stages.length - 1)) * stage.days / root.days)
            height: root.barHeight
            color: root.rest
            fill: root.fill
            value: stage.days > 0 ? stage.done / stage.days : 0
        }
    }
}
