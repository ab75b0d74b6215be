import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// Whom the draft answers, what was written before, and why the agent answers so.
Rectangle {
    id: root

    required property InboxStore store
    required property DraftsStore drafts
    readonly property Conversation conversation: drafts.conversation

    color: Theme.bg

    Rectangle {
        x: parent.width - 1
        width: 1
        height: parent.height
        color: Theme.border
    }

    Item {
        id: person
        x: Theme.pageSide
        width: parent.width - 2 * x
        height: 100
        visible: root.conversation !== null

        OrvAvatar {
            id: face
            y: 20
            size: 36
            name: root.conversation?.contact ?? ""
        }

        Text {
            id: contactName
            x: 48
            y: 20
            width: parent.width - x - (label.visible ? label.width + 8 : 0)
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.conversation?.contact ?? ""
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            x: 48
            y: 40
            width: contactName.width
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.conversation?.contactTitle ?? ""
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvBadge {
            id: label
            visible: text !== ""
            x: parent.width - width
            y: 28
            text: root.conversation?.labelTitle ?? ""
            tone: root.conversation?.labelTone || "neutral"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            y: 68
            width: parent.width - chat.width - 12
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.conversation?.origin ?? ""
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvLink {
            id: chat
            x: parent.width - width
            y: 66
            text: "Open the chat"
            onClicked: root.store.act("chat")
        }

        OrvDivider {
            y: parent.height - 1
            width: parent.width
        }
    }

    Loader {
        x: 8
        y: person.height + 4
        width: root.width - 16
        height: Math.max(0, reason.y - y - 12)
        active: root.conversation !== null
        sourceComponent: ResourceView {
            resource: root.conversation.detail
            errorTitle: "Couldn’t load this conversation."
            onRetryRequested: root.conversation.refresh()

            MessageList {
                anchors.fill: parent
                conversation: root.conversation
                onLinkChosen: url => root.store.openLink(url)
            }
        }
    }

    Rectangle {
        id: reason
        visible: root.drafts.why !== ""
        x: Theme.pageSide
        y: root.height - (visible ? height + 20 : 0)
        width: parent.width - 2 * x
        height: Math.min(answer.implicitHeight + 46, root.height / 3)
        radius: Theme.radiusCard
        color: "transparent"
        border { width: 1; color: Theme.border }
        clip: true

        OrvIcon {
            x: 12
            y: 12
            size: 14
            name: "games-hint"
            color: Theme.text2
        }

        Text {
            x: 34
            y: 10
            textFormat: Text.PlainText
            text: "Why this answer"
            font: Theme.smallStrong
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        ScrollPane {
            x: 12
            y: 34
            width: parent.width - 24
            height: parent.height - y - 10
            contentHeight: answer.implicitHeight
            isStop: true

            Text {
                id: answer
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: root.drafts.why
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
