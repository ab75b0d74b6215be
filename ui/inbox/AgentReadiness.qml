import QtQuick
import Orvella.Design
import Orvella.Inbox

/// The drafts of late that went out without real changes, against how many make the agent ready.
Column {
    id: root

    required property AgentMode mode
    readonly property real most: Math.max(1, mode.window)

    spacing: 6

    Row {
        visible: root.mode.window > 0 && root.mode.reviewed > 0
        spacing: 6
        Accessible.role: Accessible.StaticText
        Accessible.name: root.mode.matched + " of " + root.mode.reviewed + " sent without real changes."

        Text {
            id: matched
            textFormat: Text.PlainText
            text: root.mode.matched
            font: Theme.figure
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            textFormat: Text.PlainText
            text: "of " + root.mode.reviewed
            font: Theme.figure
            color: Theme.text2
            Accessible.ignored: true
        }

        Text {
            y: matched.baselineOffset - baselineOffset
            textFormat: Text.PlainText
            text: "sent without real changes."
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }
    }

    Item {
        visible: root.mode.window > 0
        width: parent.width
        height: 12

        OrvProgress {
            y: 3
            width: parent.width
            value: root.mode.matched / root.most
        }

        Rectangle {
            x: Math.round(Math.min(1, root.mode.target / root.most) * (parent.width - width))
            width: 2
            height: parent.height
            color: Theme.text
        }
    }

    Text {
        width: parent.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.mode.readiness
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
