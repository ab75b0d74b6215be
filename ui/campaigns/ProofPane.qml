import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// Beside the wall: whom it is for, what is wrong in it, and the launch, which nothing of it stops.
FocusScope {
    id: root

    required property CampaignStore store

    readonly property ProofWall wall: store.proof
    readonly property string action: store.canWrite && store.mainAction !== "pause" ? store.mainAction : ""

    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }

    Rectangle {
        width: 1
        height: parent.height
        color: Theme.border
    }

    Column {
        id: head
        x: 20
        y: 16
        width: root.width - 40
        spacing: 4

        Text {
            width: parent.width
            height: 22
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: "Email 1, rendered"
            font: Theme.paneTitle
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            lineHeightMode: Text.FixedHeight
            lineHeight: 20
            textFormat: Text.PlainText
            text: root.wall.note
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Item {
            visible: root.wall.hasOthers
            width: 1
            height: 4
        }

        OrvButton {
            visible: root.wall.hasOthers
            size: "small"
            iconName: "view-refresh"
            text: "Show 12 others"
            onClicked: root.wall.showOthers()
        }
    }

    OrvDivider {
        id: line
        x: 1
        y: head.y + head.height + 12
        width: root.width - 1
    }

    ScrollPane {
        id: scroll
        x: 1
        y: line.y + 1
        width: root.width - 1
        height: foot.y - y
        contentHeight: list.height
        interactive: contentHeight > height
        isStop: true

        Column {
            id: list
            width: scroll.width

            Item {
                id: failure
                visible: root.wall.message !== ""
                width: parent.width
                height: notice.height + 54

                OrvNotice {
                    id: notice
                    x: 16
                    y: 14
                    width: parent.width - 32
                    tone: "negative"
                    shownBy: failure
                    text: root.wall.message
                }

                OrvLink {
                    x: 20
                    y: notice.y + notice.height + 6
                    text: "Try again"
                    onClicked: root.wall.retry()
                }
            }

            Item {
                visible: root.wall.wrongCount > 0
                width: parent.width
                height: 32

                Text {
                    x: 19
                    width: parent.width - 60
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: "Look at these"
                    font: Theme.small
                    color: Theme.text2
                    Accessible.role: Accessible.Heading
                    Accessible.name: text + ", " + root.wall.wrongCount
                }

                Text {
                    x: parent.width - width - 20
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: root.wall.wrongCount
                    font: Theme.small
                    color: Theme.text2
                    Accessible.ignored: true
                }

                OrvDivider {
                    y: parent.height - 1
                    width: parent.width
                }
            }

            Repeater {
                model: root.wall.emails

                ProofFinding {
                    visible: model.state === "wrong"
                    width: list.width
                    wall: root.wall
                }
            }

            Row {
                visible: root.wall.emails.count > 0
                x: 19
                height: 44
                spacing: 6

                Repeater {
                    model: ["←", "↑", "→", "↓"]

                    OrvKeyCap {
                        required property string modelData

                        anchors.verticalCenter: parent.verticalCenter
                        text: modelData
                    }
                }

                Text {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: "walk the wall"
                    font: Theme.small
                    color: Theme.text2
                }
            }

            Row {
                visible: root.wall.emails.count > 0
                x: 19
                height: 20
                spacing: 6

                OrvKeyCap {
                    anchors.verticalCenter: parent.verticalCenter
                    text: "Enter"
                }

                Text {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: "to the lead or the text"
                    font: Theme.small
                    color: Theme.text2
                }
            }
        }
    }

    Column {
        id: foot
        x: 20
        y: root.height - height - 20
        width: root.width - 40
        spacing: 10

        Text {
            id: verdict
            width: parent.width
            height: 22
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.wall.verdict
            font: Theme.paneTitle
            color: Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Row {
            spacing: 3

            Repeater {
                model: root.wall.emails

                Rectangle {
                    required property var model

                    width: (foot.width + 3) / root.wall.emails.count - 3
                    height: 4
                    radius: 2
                    color: model.state === "wrong" ? Theme.warning : model.state === "right" ? Theme.positive : Theme.pressed
                }
            }
        }

        Text {
            visible: root.action !== ""
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: "Nothing here stops the launch."
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvButton {
            visible: root.action !== ""
            width: parent.width
            kind: "primary"
            text: root.action === "resume" ? "Resume" : "Launch"
            iconName: "media-playback-start"
            busy: root.store.busy
            onClicked: root.store.act(root.action)
        }
    }
}
