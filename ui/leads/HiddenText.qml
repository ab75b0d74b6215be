import QtQuick
import Orvella.Design

/// Stands for an address or a number that is not known yet.
Row {
    spacing: 7
    Accessible.role: Accessible.StaticText
    Accessible.name: "Hidden until unlocked"

    OrvIcon {
        anchors.verticalCenter: parent.verticalCenter
        name: "object-locked"
        size: 12
        color: Theme.text2
    }

    Text {
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: "••••••••"
        font: Theme.small
        color: Theme.text2
        Accessible.ignored: true
    }
}
