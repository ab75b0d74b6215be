import QtQuick
import Orvella.Design

/// What begins or ends a sequence.
Item {
    id: root

    property string iconName: ""
    property string text: ""
    property real topMargin: 0

    height: 42

    OrvIcon {
        x: 4
        y: root.topMargin + 8
        size: 12
        name: root.iconName
        color: Theme.text2
    }

    Text {
        x: 25
        y: root.topMargin
        width: parent.width - x
        textFormat: Text.PlainText
        text: root.text
        font: Theme.small
        color: Theme.text2
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
