import QtQuick
import Orvella.Design
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
    }

    Component {
        id: conversations

        FocusScope {
            InboxSections {
                store: root.store
            }
        }
    }
}
