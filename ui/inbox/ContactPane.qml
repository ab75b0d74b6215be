import QtQuick
import Orvella.Design
import Orvella.Inbox

/// Whom the open conversation is with, beside it.
Rectangle {
    id: root

    required property InboxStore store
    required property Conversation conversation

    color: Theme.bg

    Accessible.role: Accessible.Pane
    Accessible.name: "Contact"

    ScrollPane {
        anchors.fill: parent
        contentHeight: facts.implicitHeight + 24
        isStop: true

        ContactFacts {
            id: facts
            x: 16
            y: 12
            width: parent.width - 2 * x
            store: root.store
            conversation: root.conversation
        }
    }
}
