import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// One page in the sidebar.
T.AbstractButton {
    id: root

    property string iconName: ""
    property string keys: ""
    property bool current: false
    property bool rail: false
    property real bottomRoom: 0

    height: 32 + bottomRoom
    bottomPadding: bottomRoom
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: current ? "Current page" : ""
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Item {
        Rectangle {
            width: parent.width
            height: 32
            radius: Theme.radiusControl
            color: root.current || root.down ? Theme.pressed : root.hovered ? Theme.hover : "transparent"
            FocusRing { visible: root.visualFocus; inset: true }
        }
    }

    contentItem: Item {
        OrvIcon {
            x: root.rail ? (parent.width - width) / 2 : 10
            y: 8
            size: 16
            name: root.iconName
            color: root.current ? Theme.accentText : Theme.text2
        }

        Text {
            visible: !root.rail
            x: 36
            width: parent.width - x - 10
            height: 32
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.text
            font: root.current ? Theme.bodyBold : Theme.bodyStrong
            color: root.current ? Theme.text : Theme.text2
            Accessible.ignored: true
        }
    }

    OrvTooltip {
        beside: true
        text: root.rail ? root.text : ""
        keys: root.keys
    }
}
