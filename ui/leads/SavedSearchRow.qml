import QtQuick
import Orvella.Design

/// A saved search in a list of them, or one in the archive.
Item {
    id: root

    required property string name
    required property string detail
    required property bool archived
    required property bool canWrite
    required property bool busy

    signal opened()
    signal deleted()
    signal restored()

    height: 44
    Accessible.role: Accessible.ListItem
    Accessible.name: detail === "" ? name : name + ", " + detail

    Text {
        y: root.detail === "" ? 12 : 4
        width: buttons.x - 12
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.name
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        y: 23
        width: buttons.x - 12
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.detail
        font: Theme.small
        color: Theme.text2
        Accessible.ignored: true
    }

    Row {
        id: buttons
        x: parent.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        OrvButton {
            visible: !root.archived
            size: "small"
            text: "Open"
            Accessible.name: "Open " + root.name
            onClicked: root.opened()
        }

        OrvButton {
            visible: root.archived
            size: "small"
            text: "Restore"
            iconName: "edit-undo"
            Accessible.name: "Restore " + root.name
            enabled: root.canWrite
            busy: root.busy
            onClicked: root.restored()
        }

        OrvButton {
            size: "small"
            kind: "ghost"
            iconOnly: true
            iconName: "edit-delete"
            text: root.archived ? "Delete for good" : "Delete search"
            Accessible.name: text + ", " + root.name
            enabled: root.canWrite && !root.busy
            onClicked: root.deleted()
        }
    }

    OrvDivider {
        y: root.height - 1
        width: parent.width
    }
}
