import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Shell

/// The open workspace, and the way to another one.
T.AbstractButton {
    id: root

    required property AppModel app
    property bool rail: false

    readonly property string name: app.session !== null ? app.session.name : ""
    readonly property string slug: app.session !== null ? app.session.slug : ""

    height: 44
    text: name
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.ButtonMenu
    Accessible.name: name === "" ? "Workspaces" : "Workspace " + name
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    onClicked: {
        menu.openAt(root, false);
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.down ? Theme.pressed : root.hovered ? Theme.hover : "transparent"
        FocusRing { visible: root.activeFocus && InputMode.keyboard; inset: true }
    }

    contentItem: Item {
        OrvAvatar {
            x: root.rail ? (parent.width - width) / 2 : 8
            anchors.verticalCenter: parent.verticalCenter
            size: 28
            workspace: true
            name: root.name
        }

        Text {
            visible: !root.rail
            x: 46
            y: 5
            width: parent.width - x - 24
            height: 20
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.name
            font: Theme.bodyBold
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            visible: !root.rail
            x: 46
            y: 23
            width: parent.width - x - 24
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.slug
            font: Theme.microText
            color: Theme.text3
            Accessible.ignored: true
        }

        OrvIcon {
            visible: !root.rail
            anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
            size: 12
            name: "go-down"
            color: Theme.text3
        }
    }

    OrvTooltip {
        beside: true
        text: root.rail ? root.name : ""
    }

    MenuLoader {
        id: menu
        sourceComponent: WorkspaceMenu {
            app: root.app
        }
    }
}
