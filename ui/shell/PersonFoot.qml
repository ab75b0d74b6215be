import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Shell

/// The signed-in person with what concerns them, and the button that folds the sidebar.
Item {
    id: root

    required property AppModel app
    property bool rail: false
    property bool foldable: true

    implicitHeight: rail && foldable ? 92 : 52

    Rectangle {
        x: 8
        width: root.width - 16
        height: 1
        color: Theme.border
    }

    T.AbstractButton {
        id: person
        x: 8
        y: root.height - 48
        width: root.rail || !root.foldable ? root.width - 16 : root.width - 52
        height: 44
        text: root.app.userName
        focusPolicy: Qt.StrongFocus

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: "Account of " + root.app.userName
            + (root.app.service === "" ? "" : " on " + root.app.service)
        Accessible.onPressAction: clicked()
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: {
            menu.openAt(person, false);
        }

        background: Rectangle {
            radius: Theme.radiusControl
            color: person.down ? Theme.pressed : person.hovered ? Theme.hover : "transparent"
            FocusRing { visible: person.activeFocus && InputMode.keyboard; inset: true }
        }

        contentItem: Item {
            OrvAvatar {
                x: root.rail ? (parent.width - width) / 2 : 8
                anchors.verticalCenter: parent.verticalCenter
                size: 26
                name: root.app.userName
            }

            Text {
                visible: !root.rail
                x: 42
                y: 4
                width: parent.width - x - 4
                height: 20
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.app.userName
                font: Theme.bodyStrong
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                visible: !root.rail
                x: 42
                y: 23
                width: parent.width - x - 4
                elide: Text.ElideMiddle
                textFormat: Text.PlainText
                text: root.app.service === "" ? root.app.userEmail : root.app.userEmail + " on " + root.app.service
                font: Theme.microText
                color: Theme.text3
                Accessible.ignored: true
            }
        }

        OrvTooltip {
            beside: true
            text: root.rail ? root.app.userName : root.app.service
        }
    }

    OrvButton {
        visible: root.foldable
        x: root.rail ? (root.width - width) / 2 : root.width - width - 12
        y: root.rail ? 8 : root.height - 41
        kind: "ghost"
        iconOnly: true
        iconName: "sidebar-collapse-left"
        text: root.rail ? "Unfold the sidebar" : "Fold the sidebar"
        keys: "Ctrl B"
        onClicked: root.app.router.collapsed = !root.app.router.collapsed
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            title: "Account"

            ThemeItem { theme: "system"; text: "Theme of the desktop" }
            ThemeItem { theme: "light"; text: "Light" }
            ThemeItem { theme: "dark"; text: "Dark" }
            OrvMenuSeparator {}
            OrvMenuItem {
                text: "Shortcuts"
                iconName: "code-context"
                shortcutText: "Ctrl /"
                onTriggered: root.app.router.shortcutsOpen = true
            }
            OrvMenuItem {
                text: "Sign out"
                iconName: "system-log-out"
                onTriggered: root.app.signOut()
            }
        }
    }

    component ThemeItem: OrvMenuItem {
        property string theme: ""

        tickable: true
        ticked: root.app.appearance.theme === theme
        onTriggered: root.app.appearance.theme = theme
    }
}
