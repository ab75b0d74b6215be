import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A button on a toast's dark ground, where the ordinary ones would not show.
T.AbstractButton {
    id: root

    property string iconName: ""

    implicitWidth: Math.max(28, label.visible ? label.implicitWidth + 20 : 28)
    implicitHeight: 28
    // A click leaves the focus where the person works.
    focusPolicy: Qt.TabFocus

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        Text {
            id: label
            visible: root.iconName === ""
            anchors.centerIn: parent
            textFormat: Text.PlainText
            text: root.text
            font: Theme.bodyStrong
            color: Theme.toastAction
            Accessible.ignored: true
        }

        OrvIcon {
            visible: root.iconName !== ""
            anchors.centerIn: parent
            size: 14
            name: root.iconName
            color: Theme.inkOnTooltip
        }
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.inkOnTooltip
        opacity: root.down ? 0.2 : root.hovered ? 0.12 : 0

        Rectangle {
            visible: root.activeFocus && InputMode.keyboard
            parent: root
            anchors.fill: parent
            radius: Theme.radiusControl
            color: "transparent"
            border { width: 2; color: Theme.toastAction }
        }
    }
}
