import QtQuick
import QtQuick.Templates as T
import Orvella.Design

T.CheckBox {
    id: root

    implicitWidth: Math.ceil(contentItem.implicitWidth) + leftPadding
    implicitHeight: 26
    leftPadding: text === "" ? 16 : 24
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    opacity: enabled ? 1 : 0.6

    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checkState === Qt.Checked
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
        width: 16
        height: 16
        radius: Theme.radiusTag
        color: root.checkState !== Qt.Unchecked ? Theme.accent : Theme.surface
        border.width: root.checkState !== Qt.Unchecked ? 0 : 1.5
        border.color: Theme.borderControl
        FocusRing { visible: root.activeFocus && InputMode.keyboard; innerRadius: Theme.radiusTag }
        OrvIcon {
            visible: root.checkState === Qt.Checked
            anchors.centerIn: parent
            name: "checkmark"
            size: 12
            color: Theme.inkOnAccent
        }
        Rectangle {
            visible: root.checkState === Qt.PartiallyChecked
            anchors.centerIn: parent
            width: 8
            height: 2
            color: Theme.inkOnAccent
        }
    }
    contentItem: Text {
        id: words
        textFormat: Text.PlainText
        text: root.text
        font: Theme.body
        color: Theme.text
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    OrvTooltip {
        text: words.truncated ? root.text : ""
    }
}
