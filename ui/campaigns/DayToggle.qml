import QtQuick
import Orvella.Design

/// A weekday that is on or off.
Pressable {
    id: root

    property bool checked: false
    property string dayName: ""

    implicitWidth: 52
    implicitHeight: Theme.controlHeight
    activeFocusOnTab: true
    opacity: enabled ? 1 : 0.6
    Accessible.role: Accessible.CheckBox
    Accessible.name: dayName
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.focusable: true
    Accessible.onToggleAction: if (enabled) clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusControl
        color: root.checked ? Theme.accentSubtle : root.hovered ? Theme.hover : Theme.surface
        border { width: 1; color: root.checked ? Theme.accentText : Theme.borderField }
        FocusRing { visible: root.activeFocus && InputMode.keyboard }
    }

    Text {
        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.text
        font: Theme.bodyStrong
        color: root.checked ? Theme.accentText : Theme.text2
        Accessible.ignored: true
    }
}
