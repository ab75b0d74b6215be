import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// How close the agent is to the workspace's standard, and what it has learned.
Rectangle {
    id: root

    required property InboxStore store
    required property AgentSettingsStore agent
    readonly property AgentMode mode: agent.mode

    color: Theme.bg

    /// To the drafts, or to what was decided about them.
    function lead(toHistory: bool) {
        const inbox = store;
        (inbox.drafts as DraftsStore).historyShown = toHistory;
        inbox.section = "drafts";
    }

    Rectangle {
        width: 1
        height: parent.height
        color: Theme.border
    }

    Column {
        id: top
        x: 20
        y: 16
        width: parent.width - 40
        spacing: 8

        Item {
            width: parent.width
            height: Theme.controlHeight

            Text {
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: "Your AI’s training"
                font: Theme.bodyBold
                color: Theme.text
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            OrvButton {
                x: parent.width - width
                text: "Review drafts"
                onClicked: root.lead(false)
            }
        }

        ResourceView {
            width: parent.width
            height: root.agent.training.hasContent ? figures.height + (figures.parent?.y ?? 0) : 184
            resource: root.agent.training
            skeletonTopInset: 0
            errorTitle: "Couldn’t load the training record"
            onRetryRequested: root.agent.refresh()

            Column {
                id: figures
                width: parent.width
                spacing: 8

                AgentReadiness {
                    width: parent.width
                    mode: root.mode
                }

                AgentRecord {
                    width: parent.width
                    facts: root.mode.record
                }
            }
        }
    }

    OrvDivider {
        y: top.y + top.height + 16
        width: parent.width
    }

    AgentLessonList {
        y: top.y + top.height + 17
        width: parent.width
        height: foot.y - y
        store: root.store
        agent: root.agent
    }

    Item {
        id: foot
        y: parent.height - height
        width: parent.width
        height: 44

        OrvDivider {
            width: parent.width
        }

        OrvLink {
            x: 20
            anchors.verticalCenter: parent.verticalCenter
            text: "See every draft you reviewed"
            onClicked: root.lead(true)
        }
    }
}
