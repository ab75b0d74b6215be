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

    component Mark: OrvIcon {
        property string said

        name: said === "yes" ? "checkmark" : said === "no" ? "data-warning" : "chronometer"
        size: 14
        color: said === "yes" ? Theme.positive : said === "no" ? Theme.warning : Theme.text2
    }

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

            Mark {
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

    Repeater {
        model: root.checks.inboxes

        Column {
            id: inbox

            required property var modelData
            readonly property var facts: [
                [modelData.imap, "IMAP on", "IMAP is switched on in Gmail, so the sending tool can read replies."],
                [modelData.photo, "Profile photo", "The project photo is on the Google profile."],
                [modelData.connected, "Connected", "The inbox is connected in Accounts."]
            ]

            width: root.width
            spacing: 4

            Text {
                width: inbox.width
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: inbox.modelData.address
                font: Theme.bodyStrong
                color: Theme.text
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            Flow {
                width: inbox.width
                spacing: 12

                Repeater {
                    model: inbox.facts

                    Row {
                        id: fact

                        required property var modelData

                        spacing: 4
                        Accessible.role: Accessible.StaticText
                        Accessible.name: modelData[1] + ", " + modelData[0]
                        Accessible.description: modelData[2]

                        OrvTooltip {
                            text: fact.modelData[2]
                        }

                        Mark {
                            anchors.verticalCenter: parent.verticalCenter
                            said: fact.modelData[0]
                        }

                        Text {
                            textFormat: Text.PlainText
                            text: fact.modelData[1]
                            font: Theme.small
                            color: Theme.text2
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
}
