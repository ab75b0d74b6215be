import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A weekday that is on or off.
T.AbstractButton {
    id: root

    property string dayName: ""

    implicitWidth: 52
    implicitHeight: Theme.controlHeight
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.6
    Accessible.role: Accessible.CheckBox
    // Once somebody listens, the toolkit's button calls itself one.
    Accessible.onRoleChanged: if (Accessible.role !== Accessible.CheckBox) Accessible.role = Accessible.CheckBox
    Accessible.name: dayName
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: if (enabled) clicked()
    Accessible.onToggleAction: if (enabled) clicked()
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.checked ? Theme.accentSubtle : root.hovered ? Theme.hover : Theme.surface
        border { width: 1; color: root.checked ? Theme.accentText : Theme.borderField }
        FocusRing { visible: root.visualFocus }
    }

    contentItem: Text {
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.text
        font: Theme.bodyStrong
        color: root.checked ? Theme.accentText : Theme.text2
        Accessible.ignored: true
    }
}
