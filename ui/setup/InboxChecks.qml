import QtQuick
import Orvella.Design

/// What the checks say of each inbox of a domain, one a row.
Column {
    id: root

    required property var inboxes
    readonly property var facts: [
        { key: "imap", title: "IMAP on", name: "IMAP on", means: "IMAP is switched on in Gmail, so the sending tool can read replies.", width: 52 },
        { key: "photo", title: "Photo", name: "Profile photo", means: "The project photo is on the Google profile.", width: 44 },
        { key: "connected", title: "Connected", name: "Connected", means: "The inbox is connected in Accounts.", width: 64 }
    ]
    readonly property var words: ({ yes: "yes", no: "not yet", unknown: "not known" })

    Item {
        width: root.width
        height: 24

        Text {
            textFormat: Text.PlainText
            text: "Inbox"
            font: Theme.smallStrong
            color: Theme.text2
            Accessible.ignored: true
        }

        Row {
            anchors.right: parent.right

            Repeater {
                model: root.facts

                Text {
                    id: title

                    required property var modelData

                    width: modelData.width
                    horizontalAlignment: Text.AlignHCenter
                    textFormat: Text.PlainText
                    text: modelData.title
                    font: Theme.microText
                    color: Theme.text2
                    Accessible.role: Accessible.StaticText
                    Accessible.name: modelData.name + ": " + modelData.means

                    OrvTooltip {
                        text: title.modelData.means
                    }
                }
            }
        }
    }

    Repeater {
        model: root.inboxes

        Item {
            id: inbox

            required property var modelData

            width: root.width
            height: 28
            Accessible.role: Accessible.StaticText
            Accessible.name: [modelData.address].concat(root.facts.map(fact => fact.name + " " + root.words[modelData[fact.key]])).join(", ")

            Text {
                width: marks.x - 4
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideMiddle
                textFormat: Text.PlainText
                text: inbox.modelData.address
                font: Theme.body
                color: Theme.text
                Accessible.ignored: true
            }

            Row {
                id: marks
                anchors.right: parent.right
                height: parent.height

                Repeater {
                    model: root.facts

                    Item {
                        id: place

                        required property var modelData

                        width: modelData.width
                        height: parent.height

                        CheckMark {
                            anchors.centerIn: parent
                            said: inbox.modelData[place.modelData.key]
                            comes: place.modelData.key === "connected"
                        }
                    }
                }
            }
        }
    }
}
