import QtQuick
import Orvella.Inbox

/// The inbox: conversations, the drafts to review, or the agent that writes them.
FocusScope {
    id: root

    required property InboxStore store
    readonly property string section: store.section

    property string shown: ""

    onSectionChanged: show()
    Component.onCompleted: {
        store.ensureLoaded();
        show();
    }

    function show() {
        if (shown === section)
            return;
        shown = section;
        const file = section === "drafts" ? "DraftsView.qml" : section === "agent" ? "AgentView.qml" : "ConversationsView.qml";
        host.setSource(file, { store: root.store });
    }

    Loader {
        id: host

        readonly property var content: item

        anchors.fill: parent
        focus: true
        // Whoever went elsewhere and back goes on with the keyboard where the content is.
        onLoaded: content.takeFocus()
    }
}
