import QtQuick
import Orvella.Inbox

/// The inbox: conversations, the drafts to review, or the agent that writes them.
FocusScope {
    id: root

    required property InboxStore store

    Component.onCompleted: store.ensureLoaded()

    Loader {
        readonly property var content: item

        anchors.fill: parent
        focus: true
        sourceComponent: conversations
        // Whoever went elsewhere and back goes on with the keyboard where the content is.
        onLoaded: content.takeFocus()
    }

    Component {
        id: conversations

        ConversationsView {
            store: root.store
        }
    }
}
