import QtQuick
import Orvella.Design
import Orvella.Rampup

/// Where an account stands on its roadmap: a bar for each stage, and the day in words.
OrvCell {
    id: root

    property list<stagePart> stages
    property bool stopped: false
    property string text: ""
    property string warning: ""
    /// The row is ticked: what is yet to come must show on its ground.
    property bool onSelected: false

    label: warning === "" ? text : text + " · " + warning
    naturalWidth: words.implicitWidth + (warning === "" ? 0 : heed.implicitWidth + 12)

    StageBar {
        y: root.height / 2 - 11
        width: root.width - 32
        visible: root.stages.length > 0
        stages: root.stages
        fill: root.stopped ? Theme.borderControl : Theme.accentText
        rest: root.onSelected ? Theme.surface : Theme.pressed
    }

    Text {
        id: words
        y: root.height / 2 - (root.stages.length > 0 ? 0 : 8)
        width: Math.min(implicitWidth, root.width)
        height: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.warning === "" ? root.text : root.text + " ·"
        font: Theme.microText
        color: Theme.text2
        Accessible.ignored: true
    }

    Text {
        id: heed
        visible: root.warning !== ""
        // Behind a few short words only.
        x: words.width + 4
        y: words.y
        width: Math.min(implicitWidth, root.width - x)
        height: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.warning
        font: Theme.micro
        color: Theme.warning
        Accessible.ignored: true
    }
}
