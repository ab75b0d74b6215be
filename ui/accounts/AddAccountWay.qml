import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// One of the ways to add accounts.
T.AbstractButton {
    id: root

    required property string title
    required property string detail
    property string badge: ""

    implicitHeight: 64
    focusPolicy: Qt.StrongFocus
    text: title

    Accessible.role: Accessible.Button
    Accessible.name: badge === "" ? title : title + ", " + badge
    Accessible.description: detail
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        radius: Theme.radiusCard
        color: root.down ? Theme.pressed : root.hovered ? Theme.hover : Theme.surface
        border { width: 1; color: Theme.border }
        FocusRing { visible: root.activeFocus && InputMode.keyboard; innerRadius: Theme.radiusCard }
    }

    contentItem: Item {
        Text {
            id: heading
            x: 16
            y: 12
            textFormat: Text.PlainText
            text: root.title
            font: Theme.bodyBold
            color: Theme.text
        }

        OrvTag {
            visible: root.badge !== ""
            x: heading.x + heading.width + 8
            y: 11
            text: root.badge
        }

        Text {
            x: 16
            y: 34
            width: parent.width - 32
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.detail
            font: Theme.small
            color: Theme.text2
        }
    }
}
