import QtQuick
import Orvella.Design

/// How many of an account's emails reach the inbox, with a mark whose shape says whether that is well.
OrvCell {
    id: root

    /// "healthy", "warning", "error" or "unknown".
    property string health: ""
    property string text: ""
    readonly property color ink: health === "healthy" ? Theme.positive : health === "warning" ? Theme.warning
                               : health === "error" ? Theme.negative : Theme.neutral

    label: health === "unknown" ? text : text + ", " + health
    naturalWidth: percent.x + percent.implicitWidth

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: width
        radius: root.health === "warning" || root.health === "error" ? 1 : width / 2
        rotation: root.health === "warning" ? 45 : 0
        color: root.ink
    }

    Text {
        id: percent
        x: 14
        height: root.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.text
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true
    }
}
