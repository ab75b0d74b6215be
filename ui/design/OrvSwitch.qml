import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// Acts at once, so never inside a form with a save button.
T.Switch {
    id: root

    implicitWidth: contentItem.implicitWidth + leftPadding
    implicitHeight: 26
    leftPadding: 42
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    opacity: enabled ? 1 : 0.6

    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: root.flip()
    Accessible.onToggleAction: root.flip()
    Keys.onReturnPressed: flip()

    function flip() {
        if (!enabled) return;
        toggle();
        toggled();
    }

    indicator: Rectangle {
        y: Math.round((root.height - height) / 2)
        width: 32
        height: 18
        radius: 9
        color: root.checked ? Theme.accent : Theme.borderControl
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }
        FocusRing { visible: root.activeFocus && InputMode.keyboard; innerRadius: 9 }
        Rectangle {
            x: root.checked ? 16 : 2
            y: 2
            width: 14
            height: 14
            radius: 7
            color: Theme.inkOnAccent
            Behavior on x { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.OutCubic } }
        }
    }
    contentItem: Text {
        textFormat: Text.PlainText
        text: root.text
        font: Theme.body
        color: Theme.text
        verticalAlignment: Text.AlignVCenter
    }
}
