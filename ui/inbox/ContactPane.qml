import QtQuick
import QtQuick.Templates as T
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

    Flickable {
        anchors.fill: parent
        contentHeight: facts.implicitHeight + 24
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: OrvScrollBar {}

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
