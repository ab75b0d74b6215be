import QtQuick
import Orvella.Design
import Orvella.App

/// A member in the table.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn emailColumn
    required property OrvColumn roleColumn
    required property OrvColumn signInColumn
    required property OrvColumn actionsColumn
    property bool manageable: false

    required property string name
    required property string email
    required property string role
    required property string lastSignIn
    required property bool isYou

    readonly property bool changeable: manageable && !isYou

    label: name + ", " + role

    OrvCell {
        column: root.nameColumn
        label: root.name + (root.isYou ? ", you" : "")

        OrvAvatar {
            id: avatar
            anchors.verticalCenter: parent.verticalCenter
            size: 26
            name: root.name
        }

        Text {
            id: nameText
            x: 34
            width: Math.min(implicitWidth, parent.width - x - (you.visible ? you.width + 8 : 0))
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.name
            font: Theme.bodyStrong
            color: Theme.text
            Accessible.ignored: true
        }

        OrvTag {
            id: you
            visible: root.isYou
            x: nameText.x + nameText.width + 8
            anchors.verticalCenter: parent.verticalCenter
            text: "You"
        }
    }

    OrvTextCell {
        column: root.emailColumn
        text: root.email
        color: Theme.text2
        elide: Text.ElideMiddle
    }

    OrvCell {
        column: root.roleColumn
        label: root.role

        // As the row's menu is: a control for each row would be a stop for each row.
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(parent.width, 104)
            height: Theme.controlHeightSmall
            radius: Theme.radiusControl
            color: !root.changeable ? "transparent" : area.pressed ? Theme.pressed : area.containsMouse ? Theme.hover : Theme.raised
            border { width: root.changeable ? 1 : 0; color: Theme.borderField }

            Text {
                x: 10
                width: parent.width - x - 24
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.role
                font: root.changeable ? Theme.smallStrong : Theme.body
                color: Theme.text
                Accessible.ignored: true
            }

            OrvIcon {
                visible: root.changeable
                anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
                name: "go-down"
                size: 12
                color: Theme.text3
            }

            MouseArea {
                id: area
                anchors.fill: parent
                enabled: root.changeable && !root.busy
                hoverEnabled: true
                onClicked: root.table.opened(root.key)
            }
        }
    }

    OrvTextCell {
        column: root.signInColumn
        text: root.lastSignIn
        color: Theme.text2
    }

    RowMenuCell {
        visible: root.changeable
        row: root
        column: root.actionsColumn
        name: root.name
    }
}
