import QtQuick
import Orvella.Design

/// What only says something: badges, tags, counts, bars, people, notices and the type scale.
Rectangle {
    id: root

    color: Theme.surface

    Column {
        x: 24
        y: 24
        width: root.width - 48
        spacing: 20

        Row {
            spacing: 12

            OrvBadge { text: "Running"; tone: "positive" }
            OrvBadge { text: "Paused"; tone: "warning" }
            OrvBadge { text: "Completed"; tone: "accent" }
            OrvBadge { text: "Draft"; shape: "ring" }
            OrvBadge { text: "Failed"; tone: "negative"; shape: "square" }
            OrvBadge { text: "Catch-all"; tone: "warning"; shape: "diamond" }
        }

        Row {
            spacing: 12

            OrvTag { text: "finance" }
            OrvTag { text: "a tag that is much longer than any tag ought to be" }
            OrvCount { value: 6 }
            OrvCount { value: 12; accented: true }
            OrvKeyCap { text: "Ctrl K" }
            OrvBusyRing { running: true; color: Theme.text2 }
        }

        Row {
            spacing: 12

            OrvAvatar { name: "Maren Kolbe" }
            OrvAvatar { name: "Tomas" }
            OrvAvatar { name: "Northgate Growth"; workspace: true }
            OrvMark {}
        }

        OrvProgress { width: 148; value: 0.43 }
        OrvProgress { width: 148; value: 1; fill: Theme.borderControl }
        OrvNotice { width: 480; text: "Tips, it still sends: Links (email 1 has two links)." }
        OrvNotice { width: 480; tone: "negative"; text: "Couldn’t delete the workspace." }
        OrvDivider { width: 480 }

        Repeater {
            model: [["figure", Theme.figure], ["page title", Theme.pageTitle], ["dialog title", Theme.dialogTitle], ["pane title", Theme.paneTitle],
                ["reading", Theme.reading], ["body", Theme.body], ["body strong", Theme.bodyStrong], ["small", Theme.small], ["micro", Theme.micro]]

            Text {
                required property var modelData

                textFormat: Text.PlainText
                text: modelData[0] + " 0123456789"
                font: modelData[1]
                color: Theme.text
            }
        }
    }
}
