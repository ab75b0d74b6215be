import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The open conversation: its messages, the draft that waits, and the person's own reply.
FocusScope {
    id: root

    required property InboxStore store
    required property Conversation conversation
    /// The contact has no pane of its own beside it.
    property bool withContact: false

    /// The person goes back to the list.
    signal leaveRequested()
    signal contactRequested()

    Keys.onEscapePressed: leaveRequested()

    ConversationHeader {
        id: header
        width: root.width
        store: root.store
        conversation: root.conversation
        withContact: root.withContact
        onContactRequested: root.contactRequested()
    }

    ResourceView {
        id: view
        y: header.height
        width: root.width
        height: root.height - y
        resource: root.conversation.detail
        skeletonRowHeight: 96
        skeletonTopInset: 16
        errorTitle: "Couldn’t load this conversation."
        onRetryRequested: root.conversation.refresh()

        MessageList {
            id: messages
            width: view.width
            height: parent.height - dock.height
            conversation: root.conversation
            onLinkChosen: url => root.store.openLink(url)
        }

        Column {
            id: dock
            x: 16
            y: parent.height - height
            width: view.width - 2 * x
            bottomPadding: 14
            spacing: 8

            DraftDecisionList {
                visible: count > 0
                width: parent.width
                mostHeight: 84
                drafts: root.store.drafts as DraftsStore
            }

            Repeater {
                model: root.conversation.outgoing

                Text {
                    required property string modelData

                    width: dock.width
                    height: 24
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    text: modelData
                    font: Theme.small
                    color: Theme.text2
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }

            WaitingDraft {
                id: draft
                visible: root.conversation.hasDraft
                width: parent.width
                store: root.store
                conversation: root.conversation
                folded: root.conversation.replying
                mostHeight: Math.max(140, view.height * 0.55)
                onLeaveRequested: root.leaveRequested()
            }

            ReplyBox {
                id: reply
                visible: root.conversation.replying && root.conversation.reply !== null
                width: parent.width
                store: root.store
                conversation: root.conversation
                mostHeight: Math.max(140, view.height * 0.5)
                onLeaveRequested: root.leaveRequested()
            }

            Row {
                visible: root.store.canWrite && !draft.visible && !reply.visible
                spacing: 8

                OrvButton {
                    text: "Reply"
                    iconName: "mail-reply-sender"
                    keys: "R"
                    onClicked: root.store.act("reply")
                }

                OrvButton {
                    text: "Generate AI reply"
                    iconName: "document-edit"
                    busy: root.store.generating
                    onClicked: root.store.act("generate")
                }
            }
        }
    }

    Connections {
        target: root.store

        function onReplyWanted() {
            reply.take();
        }
        function onEditWanted() {
            draft.take();
        }
        function onReplySent() {
            root.leaveRequested();
        }
    }
}
