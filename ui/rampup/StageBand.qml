pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Rampup

/// The stages of a roadmap side by side, each as wide as it is long, with how far it has come.
Row {
    id: root

    property list<stagePart> stages

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
            readonly property string name: root.stages[index]?.name ?? ""
            readonly property string facts: root.stages[index]?.facts ?? ""
            readonly property real days: root.stages[index]?.days ?? 0
            readonly property real done: root.stages[index]?.done ?? 0
            readonly property bool current: root.stages[index]?.current ?? false

            width: Math.max(2, (root.width - root.spacing * (root.stages.length - 1)) * days / root.days)
            height: 44

            Accessible.role: Accessible.StaticText
            Accessible.name: name + ", " + facts

            OrvProgress {
                width: parent.width
                height: 6
                value: cell.days > 0 ? cell.done / cell.days : 0
            }

            Text {
                y: 10
                width: parent.width - 4
                height: 18
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: cell.name
                font: cell.current ? Theme.smallStrong : Theme.small
                color: cell.current ? Theme.text : Theme.text2
                Accessible.ignored: true
            }

            Text {
                y: 27
                width: parent.width - 4
                height: 16
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: cell.facts
                font: Theme.microText
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
