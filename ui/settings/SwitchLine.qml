import QtQuick
import Orvella.Design

/// A switch, which acts at once, and what it does.
Column {
    id: root

    property alias text: toggle.text
    property alias checked: toggle.checked
    property string help: ""

    signal toggled(bool on)

    spacing: 4

    OrvSwitch {
        id: toggle
        onToggled: root.toggled(checked)
    }

    Text {
        visible: text !== ""
        x: toggle.leftPadding
        width: root.width - x
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.help
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
