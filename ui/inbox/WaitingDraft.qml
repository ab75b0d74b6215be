import QtQuick
import Orvella.Design
import Orvella.Inbox

/// The agent's draft for the open conversation: to send, to change, or to skip.
Rectangle {
    id: root

    required property InboxStore store
    required property Conversation conversation
    /// The person writes a message of their own beside it.
    property bool folded: false
    property real mostHeight: 320

    signal leaveRequested()

    function take() {
        editor.take();
    }

    readonly property bool editing: conversation.editing && conversation.edit !== null
    /// Somebody writes, or wrote, in this one: a field for what is only read would hold up going on to the next.
    property bool touched: false

    onEditingChanged: touched = touched || editing
    // Not by `editing`, which is still that of the one before.
    onConversationChanged: touched = conversation.editing && conversation.edit !== null

    height: folded ? head.height : Math.min(mostHeight, head.height + failures.height + body.wanted + foot.height)
    radius: Theme.radiusFloat
    color: Theme.surface
    border { width: 1; color: Theme.border }
    clip: true

    Accessible.role: Accessible.Grouping
    Accessible.name: conversation.draftTitle

    WaitingDraftHead {
        id: head
        x: 1
        y: 1
        width: parent.width - 2
        store: root.store
        conversation: root.conversation
        folded: root.folded
    }

    Column {
        id: failures
        visible: !root.folded
        x: 12
        y: head.height + 8
        width: parent.width - 2 * x
        height: notice.visible ? implicitHeight + 8 : 0

        OrvNotice {
            id: notice
            width: parent.width
            visible: text !== ""
            text: root.conversation.draftFailures
        }
    }

    Item {
        id: body

        readonly property real wanted: root.editing ? editor.wanted + 16 : words.implicitHeight + 24

        visible: !root.folded
        x: 15
        y: head.height + failures.height + (notice.visible ? 8 : 0)
        width: parent.width - 2 * x
        height: foot.y - y

        ScrollPane {
            id: scroll
            anchors.fill: parent
            visible: !root.editing
            contentHeight: words.implicitHeight + 24
            isStop: true

            TextLines {
                document: words.textDocument
                height: Theme.readingLine
                // What is typed in the editor need not be laid out here as well.
                text: root.editing ? "" : root.conversation.draftText
            }

            TextEdit {
                id: words
                y: 12
                width: Math.min(Theme.readingWidth, scroll.width - 8)
                readOnly: true
                selectByMouse: true
                textFormat: TextEdit.PlainText
                wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
                font: Theme.reading
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.inkOnAccent
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }

        Loader {
            id: editor
            anchors { fill: parent; topMargin: 10 }
            active: root.conversation.edit !== null && root.touched
            visible: root.editing
            sourceComponent: composer

            readonly property Composer field: item as Composer
            readonly property real wanted: field ? field.wantedHeight : 0

            function take() {
                if (field)
                    field.take();
            }
        }
    }

    Component {
        id: composer

        Composer {
            writing: root.conversation.edit
            label: "The draft"
            placeholder: ""
            editable: root.store.canWrite && !root.store.deciding
            onSendRequested: root.store.act("approve")
            onLeaveRequested: {
                root.conversation.editing = false;
                root.leaveRequested();
            }
        }
    }

    Item {
        id: foot
        visible: !root.folded
        x: 15
        y: root.height - height
        width: parent.width - 2 * x
        height: 46

        OrvButton {
            id: edit
            visible: root.store.canWrite && !root.editing
            x: -6
            y: 8
            kind: "ghost"
            iconOnly: true
            iconName: "document-edit"
            text: "Edit the draft"
            onClicked: root.store.act("edit")
        }

        OrvButton {
            visible: root.editing
            y: 8
            text: "Discard"
            onClicked: {
                root.conversation.edit.discard();
                root.conversation.editing = false;
            }
        }

        Text {
            visible: !root.editing
            x: edit.visible ? 32 : 0
            width: Math.max(0, buttons.x - x - 8)
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
            visible: root.store.canWrite
            x: parent.width - width + 6
            y: 8
            spacing: 8

            OrvButton {
                text: "Reply"
                iconName: "mail-reply-sender"
                keys: "R"
                onClicked: root.store.act("reply")
            }

            OrvButton {
                text: "Skip"
                enabled: !root.store.deciding
                onClicked: root.store.act("skip")
            }

            OrvButton {
                kind: "primary"
                text: root.conversation.edit !== null && root.conversation.edit.dirty ? "Approve your edit" : "Approve"
                keys: root.conversation.replying ? "" : "Ctrl ↵"
                busy: root.store.deciding
                onClicked: root.store.act("approve")
            }
        }
    }
}
