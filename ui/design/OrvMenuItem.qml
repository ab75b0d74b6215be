import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// An entry of an OrvMenu. `triggered()` says that the person chose it.
T.MenuItem {
    id: root

    property string iconName: ""
    /// The key that does the same, as the person reads it ("Ctrl D").
    property string shortcutText: ""
    /// A second line, where a choice needs words.
    property string detail: ""
    property bool danger: false
    /// A choice that is in force or not. The toolkit's own `checked` flips with every click, whatever came of it.
    property bool tickable: false
    property bool ticked: false
    readonly property color ink: danger ? Theme.negative : Theme.text

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: !visible ? 0 : detail === "" ? 30 : 48
    leftPadding: 10
    rightPadding: 8
    opacity: enabled ? 1 : 0.6

    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.description: detail !== "" ? detail : shortcutText
    Accessible.checkable: tickable
    Accessible.checked: ticked
    Accessible.onPressAction: if (enabled) triggered()
    // Before those who listen: they may take this entry away, and the toolkit then forgets the menu.
    onTriggered: if (!subMenu) menu.close()

    contentItem: Item {
        implicitWidth: label.x + label.implicitWidth + (shortcut.visible ? 24 + shortcut.implicitWidth : 0)

        OrvIcon {
            visible: name !== ""
            anchors.verticalCenter: parent.verticalCenter
            size: 16
            name: root.tickable ? (root.ticked ? "checkmark" : "") : root.iconName
            color: root.danger ? Theme.negative : Theme.text2
        }

        Text {
            id: label
            x: root.iconName === "" && !root.tickable ? 0 : 22
            width: Math.min(implicitWidth, parent.width - x - (shortcut.visible ? shortcut.implicitWidth + 12 : 0))
            y: root.detail === "" ? 0 : 4
            height: root.detail === "" ? parent.height : 20
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.text
            font: Theme.body
            color: root.ink
        }

        Text {
            visible: root.detail !== ""
            x: label.x
            y: 24
            width: parent.width - x
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.detail
            font: Theme.small
            color: Theme.text2
        }

        Text {
            id: shortcut
            visible: text !== ""
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            textFormat: Text.PlainText
            text: root.subMenu ? "" : root.shortcutText
            font: Theme.micro
            color: Theme.text3
        }
    }

    arrow: OrvIcon {
        visible: root.subMenu !== null
        x: root.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        size: 12
        name: "go-next"
        color: Theme.text3
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.down ? Theme.pressed : root.highlighted || root.activeFocus || root.hovered ? Theme.hover : "transparent"
        border { width: root.activeFocus && InputMode.keyboard ? 2 : 0; color: Theme.focus }
    }
}
