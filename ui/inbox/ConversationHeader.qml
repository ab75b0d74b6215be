import QtQuick
import QtQml
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// What the conversation is about, where it came from, its label, and what can be done with it.
Item {
    id: root

    required property InboxStore store
    required property Conversation conversation
    property bool withContact: false

    signal contactRequested()

    implicitHeight: 59

    Text {
        x: 20
        y: 9
        width: actions.x - x - 12
        height: 22
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.conversation.subject
        font: Theme.paneTitle
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: root.conversation.labelTitle === "" ? text : text + ", " + root.conversation.labelTitle
    }

    Text {
        x: 20
        y: 31
        width: actions.x - x - 12
        height: 18
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.conversation.origin
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        id: actions
        x: root.width - width - 12
        y: 15
        height: Theme.controlHeight
        spacing: 4

        LabelButton {
            id: labels
            enabled: root.store.canWrite
            store: root.store
            conversation: root.conversation
        }

        OrvButton {
            visible: root.store.canWrite
            iconOnly: true
            iconName: root.conversation.archived ? "edit-undo" : "archive-insert"
            text: root.conversation.archived ? "Move to inbox (E)" : "Archive (E)"
            onClicked: root.store.act("archive")
        }

        OrvButton {
            visible: root.store.canWrite
            iconOnly: true
            iconName: "mail-mark-unread"
            text: "Mark unread (U)"
            onClicked: root.store.act("unread")
        }

        OrvButton {
            visible: root.withContact
            iconOnly: true
            iconName: "system-users"
            text: "Contact"
            onClicked: root.contactRequested()
        }

        OrvButton {
            id: more
            iconOnly: true
            iconName: "overflow-menu"
            text: "More"
            onClicked: menu.openUnder(more)
        }
    }

    OrvDivider {
        y: root.height - 1
        width: root.width
    }

    ActionMenu {
        id: menu
        title: "Actions for " + root.conversation.subject
        store: root.store
    }

    Connections {
        target: root.store

        function onLabelsWanted() {
            labels.open();
        }
    }
}
