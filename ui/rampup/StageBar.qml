pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Rampup

/// A bar for each stage of a roadmap, as long as its days, filled as far as they are over.
Row {
    id: root

    property list<stagePart> stages
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
            readonly property real days: root.stages[index]?.days ?? 0
            readonly property real done: root.stages[index]?.done ?? 0

            width: Math.max(2, (root.width - root.spacing * (root.stages.length - 1)) * days / root.days)
            height: root.barHeight
            color: root.rest
            fill: root.fill
            value: days > 0 ? done / days : 0
        }
    }
}
