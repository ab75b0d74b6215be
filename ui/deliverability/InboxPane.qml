import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Deliverability

/// What the watcher sees of one inbox: its stage and figures, how its placement went, and what was decided.
Column {
    id: root

    required property InboxDetail inbox

    spacing: 16

    Item {
        width: root.width
        height: 22

        OrvBadge {
            id: badge
            anchors.verticalCenter: parent.verticalCenter
            text: root.inbox.stage
            tone: root.inbox.stageTone
        }

        Text {
            x: badge.width + 8
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.inbox.since
            font: Theme.small
            color: Theme.text2
        }

        Text {
            anchors.right: parent.right
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.inbox.lastScan
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    InboxFigures {
        width: root.width
        figures: root.inbox.figures
    }

    OrvDivider {
        width: root.width
    }

    ResourceView {
        width: root.width
        height: root.inbox.detail.hasContent ? Math.max(200, below.height) : 240
        resource: root.inbox.detail
        errorTitle: "Couldn’t load this inbox"
        onRetryRequested: root.inbox.refresh()

        Column {
            id: below
            width: parent.width
            spacing: 16

            OrvChart {
                width: parent.width
                implicitHeight: 168
                title: "Inbox rate, 14 days"
                detail: root.inbox.checksText
                unit: "%"
                upTo: 100
                days: root.inbox.days
                series: root.inbox.series
                emptyText: "No checked warm-up emails in these days."
            }

            Text {
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: "Only active, connected inboxes are scanned."
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            OrvDivider {
                width: parent.width
            }

            DecisionList {
                width: parent.width
                inbox: root.inbox
            }
        }
    }
}
