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
    /// What waits there, shown when there is some.
    property int count: 0
    /// How much there needs looking at.
    property int attention: 0
    property real bottomRoom: 0

    height: 32 + bottomRoom
    bottomPadding: bottomRoom
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: Array.from([current ? "Current page" : "", count > 0 ? count + " unread" : "",
                                        attention > 0 ? attention + " need attention" : ""]).filter(text => text !== "").join(", ")
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Item {
        Rectangle {
            width: parent.width
            height: 32
            radius: Theme.radiusControl
            color: root.current || root.down ? Theme.pressed : root.hovered ? Theme.hover : "transparent"
            FocusRing { visible: root.activeFocus && InputMode.keyboard; inset: true }
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

        CountMark {
            id: mark
            x: parent.width - width - (root.rail ? -2 : 10)
            y: root.rail ? -4 : 8
            count: root.count
            strong: root.rail
        }

        Rectangle {
            visible: root.attention > 0
            x: root.rail ? (parent.width + 16) / 2 - 4 : parent.width - width - 14
            y: root.rail ? 5 : (32 - height) / 2
            width: 7
            height: 7
            radius: width / 2
            color: Theme.warning
            Accessible.ignored: true
        }

        Text {
            visible: !root.rail
            x: 36
            width: (mark.visible ? mark.x - 8 : parent.width - 10) - x
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
