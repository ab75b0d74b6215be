import QtQuick
import Orvella.Design
import Orvella.Inbox

/// What is known of the contact: who they are, the campaigns they are in, the lists they stand in.
Column {
    id: root

    required property InboxStore store
    required property Conversation conversation

    onConversationChanged: conversation?.ensureContact()
    Component.onCompleted: conversation?.ensureContact()

    Connections {
        target: root.conversation

        function onChanged() {
            root.conversation.ensureContact();
        }
    }

    Row {
        width: parent.width
        height: 50
        spacing: 12

        OrvAvatar {
            id: face
            y: 2
            size: 36
            name: root.conversation?.contact ?? ""
        }

        Column {
            width: parent.width - face.width - 12

            Words {
                text: root.conversation?.contact ?? ""
                font: Theme.emptyTitle
                color: Theme.text
            }

            Words {
                visible: text !== ""
                text: root.conversation?.contactTitle ?? ""
            }
        }
    }

    OrvDivider {
        width: parent.width
    }

    Item {
        width: 1
        height: 12
    }

    Repeater {
        // By their number: going on to another contact gives them other words instead of making them anew.
        model: root.conversation?.facts.length ?? 0

        Column {
            id: fact

            required property int index
            readonly property choice modelData: root.conversation?.facts[index] ?? ({})

            width: root.width
            bottomPadding: 10

            Words {
                text: fact.modelData.label
                font: Theme.small
            }

            Row {
                width: parent.width
                spacing: 4

                Words {
                    width: Math.min(implicitWidth, parent.width - 30)
                    elide: Text.ElideMiddle
                    text: fact.modelData.detail
                    color: Theme.text
                }

                OrvButton {
                    visible: fact.modelData.key === "email"
                    anchors.verticalCenter: parent.verticalCenter
                    height: 20
                    kind: "ghost"
                    size: "small"
                    iconOnly: true
                    iconName: "edit-copy"
                    text: "Copy email address"
                    onClicked: root.store.act("copy-address")
                }
            }
        }
    }

    Heading {
        visible: root.conversation !== null && root.conversation.campaigns.length > 0
        text: "Campaigns"
    }

    Repeater {
        model: root.conversation?.campaigns.length ?? 0

        Item {
            id: campaign

            required property int index
            readonly property choice modelData: root.conversation?.campaigns[index] ?? ({})

            width: root.width
            height: 44

            Words {
                width: parent.width - state.width - 8
                text: campaign.modelData.label
                font: Theme.bodyStrong
                color: Theme.text
            }

            OrvBadge {
                id: state
                x: parent.width - width
                text: campaign.modelData.key
                tone: text.toLowerCase() === "replied" ? "positive" : "neutral"
            }

            Words {
                y: 20
                text: campaign.modelData.detail
                font: Theme.small
            }
        }
    }

    Heading {
        visible: root.conversation !== null && root.conversation.lists.length > 0
        text: "In lists"
    }

    Flow {
        width: parent.width
        spacing: 4

        Repeater {
            model: root.conversation?.lists ?? []

            OrvTag {
                required property string modelData

                text: modelData
            }
        }
    }

    Heading {
        visible: root.conversation !== null && root.conversation.agentMode !== ""
        text: "Reply agent"
    }

    Words {
        visible: text !== ""
        text: root.conversation?.agentMode ?? ""
        color: Theme.text
    }

    component Words: Text {
        width: parent.width
        height: visible ? Math.max(implicitHeight, 20) : 0
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    component Heading: Column {
        id: heading

        property string text: ""

        width: root.width
        topPadding: 8
        bottomPadding: 6
        spacing: 10

        OrvDivider {
            width: parent.width
        }

        Text {
            textFormat: Text.PlainText
            text: heading.text
            font: Theme.bodyBold
            color: Theme.text2
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }
}
