import QtQuick
import Orvella.Design

/// A lead's address, or that it is hidden and can be unlocked. Like other buttons of rows this one is drawn here: the
/// keyboard has the row's menu for it.
OrvCell {
    id: root

    property string name: ""
    property string email: ""
    property bool locked: false
    property bool canUnlock: true
    property string hint: ""

    signal unlockRequested()

    label: locked ? "locked" : email
    naturalWidth: locked ? unlock.x + unlock.width : emailText.implicitWidth

    OrvAddress {
        id: emailText
        visible: !root.locked
        width: root.width
        height: root.height
        text: root.email
        color: Theme.text2
    }

    HiddenText {
        id: dots
        visible: root.locked
        height: root.height
    }

    Rectangle {
        id: unlock
        visible: root.locked
        x: dots.width + 8
        anchors.verticalCenter: parent.verticalCenter
        width: unlockText.implicitWidth + 16
        height: 22
        radius: Theme.radiusControl
        opacity: root.canUnlock ? 1 : 0.6
        color: area.pressed ? Theme.pressed : area.containsMouse ? Theme.hover : Theme.raised
        border { width: 1; color: Theme.borderField }

        Accessible.role: Accessible.Button
        Accessible.name: "Unlock " + root.name
        Accessible.description: root.hint
        Accessible.ignored: !root.locked
        Accessible.onPressAction: if (root.canUnlock) root.unlockRequested()

        Text {
            id: unlockText
            anchors.centerIn: parent
            textFormat: Text.PlainText
            text: "Unlock"
            font: Theme.smallStrong
            color: Theme.text
            Accessible.ignored: true
        }

        MouseArea {
            id: area
            anchors { fill: parent; margins: -2 }
            hoverEnabled: true
            enabled: root.locked && root.canUnlock
            onClicked: root.unlockRequested()
        }
    }
}
