import QtQuick
import Orvella.Design
import Orvella.Inbox

/// The person's own message to the open conversation.
Rectangle {
    id: root

    required property InboxStore store
    required property Conversation conversation
    readonly property Writing writing: conversation.reply
    readonly property bool sending: writing !== null && writing.sending
    property real mostHeight: 320

    signal leaveRequested()

    function take() {
        if (composer.field)
            composer.field.take();
    }

    height: Math.min(mostHeight, head.height + (warning.visible ? warning.height + 8 : 0) + (composer.field ? composer.field.wantedHeight : 0) + foot.height)
    radius: Theme.radiusFloat
    color: Theme.surface
    border { width: 1; color: Theme.borderField }

    Accessible.role: Accessible.Grouping
    Accessible.name: title.text

    Item {
        id: head
        x: 15
        width: parent.width - 2 * x
        height: 42

        Text {
            id: title
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.conversation.hasDraft ? "Manual reply" : "Reply"
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            x: title.width + 10
            width: copies.x - x - 8
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            text: "to " + root.conversation.contactAddress
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvButton {
            id: copies
            visible: composer.field !== null && !composer.field.copiesShown
            x: parent.width - width + 6
            anchors.verticalCenter: parent.verticalCenter
            kind: "ghost"
            size: "small"
            text: "Cc / Bcc"
            onClicked: composer.field.showCopies()
        }
    }

    OrvNotice {
        id: warning
        visible: root.writing !== null && root.writing.uncertain && !root.writing.sending
        x: 12
        y: head.height
        width: parent.width - 2 * x
        text: "This reply may have been sent. Before it is sent again, the conversation is read anew."
    }

    Loader {
        id: composer

        readonly property Composer field: item as Composer

        x: 15
        y: warning.y + (warning.visible ? warning.height + 8 : 0)
        width: parent.width - 2 * x
        height: foot.y - y
        active: root.writing !== null
        sourceComponent: Composer {
            focus: true
            writing: root.writing
            withCopies: true
            label: title.text
            placeholder: root.conversation.hasDraft ? "Write a separate message (not the AI draft)…" : "Write your reply…"
            editable: root.store.canWrite && !root.sending
            onSendRequested: root.store.act("send")
            onLeaveRequested: {
                root.conversation.replying = false;
                root.leaveRequested();
            }
        }
    }

    Item {
        id: foot
        x: 15
        y: root.height - height
        width: parent.width - 2 * x
        height: 46

        Text {
            width: Math.max(0, buttons.x - 8)
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            text: "From " + root.conversation.mailbox
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Row {
            id: buttons
            x: parent.width - width + 6
            y: 8
            spacing: 8

            OrvButton {
                text: root.writing !== null && root.writing.dirty ? "Discard" : "Close"
                enabled: !root.sending
                onClicked: {
                    root.writing.discard();
                    root.conversation.replying = false;
                    root.leaveRequested();
                }
            }

            OrvButton {
                kind: "primary"
                text: "Send email"
                keys: "Ctrl ↵"
                busy: root.sending
                enabled: root.writing !== null && (root.writing.canSend || root.sending)
                onClicked: root.store.act("send")
            }
        }
    }
}
