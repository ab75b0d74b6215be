pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Setup

/// What Google and the mail servers say about one domain.
Column {
    id: root

    required property SetupChecks checks

    bottomPadding: 20
    spacing: 12

    Text {
        width: root.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: "What Google and the mail servers say about this domain right now."
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        spacing: 12

        OrvButton {
            size: "small"
            iconName: "view-refresh"
            text: "Check again"
            busy: root.checks.checking
            onClicked: root.checks.check()
        }

        Text {
            height: 26
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.checks.timeText
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    OrvNotice {
        visible: text !== ""
        width: root.width
        text: root.checks.note
    }

    Repeater {
        model: root.checks.lines

        Item {
            id: line

            required property choice modelData
            readonly property string word: modelData.key === "yes" ? "Yes" : modelData.key === "no" ? "Not yet" : "Not known"

            width: root.width
            height: 20 + detail.height + 4
            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.label + ", " + word + ". " + modelData.detail

            CheckMark {
                y: 3
                said: line.modelData.key
            }

            Text {
                x: 24
                textFormat: Text.PlainText
                text: line.modelData.label
                font: Theme.bodyStrong
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                x: line.width - width
                textFormat: Text.PlainText
                text: line.word
                font: Theme.small
                color: line.modelData.key === "no" ? Theme.warning : Theme.text2
                Accessible.ignored: true
            }

            Text {
                id: detail
                x: 24
                y: 20
                width: line.width - x
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: line.modelData.detail
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }

    OrvDivider {
        visible: root.checks.inboxes.length > 0
        width: root.width
    }

    InboxChecks {
        visible: inboxes.length > 0
        width: root.width
        inboxes: root.checks.inboxes
    }
}
