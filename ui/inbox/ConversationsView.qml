import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The list of conversations, the open one, and whom it is with.
FocusScope {
    id: root

    required property InboxStore store
    readonly property Conversation conversation: store.conversation
    /// The same; once none is open, the last one: what shows it hears of that before it is taken away.
    property Conversation shown: null
    readonly property bool roomy: Window.width >= 1680
    readonly property bool narrow: Window.width < 1180
    readonly property real contactWidth: narrow || conversation === null ? 0
        : store.leadsWidth > 0 ? store.leadsWidth : roomy ? 320 : 252

    onConversationChanged: {
        if (conversation !== null)
            shown = conversation;
    }

    function takeFocus() {
        list.focusRows();
    }

    ThreadPane {
        id: list
        width: root.roomy ? 360 : root.narrow ? 300 : 324
        height: root.height
        focus: true
        store: root.store
    }

    Rectangle {
        x: list.width - 1
        width: 1
        height: root.height
        color: Theme.border
    }

    OrvEmpty {
        x: list.width
        width: root.width - x
        height: root.height
        visible: root.conversation === null
        iconName: "mail-folder-inbox"
        text: "Choose a conversation from the left to open the latest messages."
    }

    Loader {
        id: pane

        readonly property ConversationPane shown: item as ConversationPane

        active: root.conversation !== null && root.shown !== null
        x: list.width
        width: root.width - x - root.contactWidth
        height: root.height
        sourceComponent: ConversationPane {
            store: root.store
            conversation: root.shown
            withContact: root.narrow
            onLeaveRequested: list.focusRows()
            onContactRequested: contactDrawer.shown = true
        }
    }

    Loader {
        active: root.contactWidth > 0 && root.shown !== null
        x: root.width - width
        width: root.contactWidth
        height: root.height
        sourceComponent: ContactPane {
            store: root.store
            conversation: root.shown
        }
    }

    PaneEdge {
        visible: root.contactWidth > 0
        x: root.width - root.contactWidth - width / 2
        height: root.height
        paneWidth: root.contactWidth
        least: root.store.leastLeadsWidth
        most: root.store.mostLeadsWidth
        onMoved: width => root.store.leadsWidth = width
    }

    OnDemand {
        id: contactDrawer
        shown: false
        sourceComponent: OrvDrawer {
            title: root.shown !== null ? root.shown.contact : ""
            onClosed: contactDrawer.shown = false

            ContactFacts {
                width: parent.width
                store: root.store
                conversation: root.shown
            }
        }
    }
}
