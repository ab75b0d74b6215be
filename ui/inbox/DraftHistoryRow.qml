import QtQuick
import Orvella.Design

/// One decided draft: what the agent wrote, what went out, what came of it.
FocusScope {
    id: root

    required property string id
    required property string contact
    required property string kind
    required property string when
    required property string subject
    required property string aiText
    required property string sentText
    required property string outcome
    required property string why
    required property string lesson
    property bool busy: false
    property bool canPutBack: false

    signal putBackRequested()

    readonly property real column: sentText !== "" ? (page.width - 24) / 2 : Math.min(720, page.width)

    height: page.height + 33
    Accessible.role: Accessible.ListItem
    Accessible.name: contact + ", " + outcome + ", " + when

    Column {
        id: page
        x: Theme.pageSide
        y: 16
        width: Math.min(1240, root.width - 2 * x)
        spacing: 8

        Item {
            width: parent.width
            height: 30

            Text {
                id: who
                width: Math.min(implicitWidth, parent.width / 3)
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.contact
                font: Theme.bodyBold
                color: Theme.text
            }

            Text {
                x: who.width + 10
                width: back.x - x - 12
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: Array.from([root.kind, root.outcome, root.subject, root.when]).filter(part => part !== "").join(" · ")
                font: Theme.small
                color: Theme.text2
            }

            OrvButton {
                id: back
                visible: root.canPutBack
                x: parent.width - width
                anchors.verticalCenter: parent.verticalCenter
                size: "small"
                text: "Put back"
                iconName: "edit-undo"
                busy: root.busy
                onClicked: root.putBackRequested()
            }
        }

        Row {
            spacing: 24

            Repeater {
                model: Array.from([{ title: "The AI wrote", text: root.aiText }, { title: "You sent", text: root.sentText }]).filter(part => part.text !== "")

                Column {
                    id: part

                    required property var modelData

                    width: root.column
                    spacing: 4

                    Text {
                        textFormat: Text.PlainText
                        text: part.modelData.title
                        font: Theme.smallStrong
                        color: Theme.text3
                    }

                    Text {
                        width: parent.width
                        wrapMode: Text.Wrap
                        maximumLineCount: 40
                        elide: Text.ElideRight
                        textFormat: Text.PlainText
                        text: part.modelData.text
                        font: Theme.body
                        color: Theme.text
                        Accessible.role: Accessible.StaticText
                        Accessible.name: part.modelData.title + ": " + text
                    }
                }
            }
        }

        Repeater {
            model: Array.from([root.why, root.lesson]).filter(line => line !== "")

            Text {
                required property string modelData

                width: Math.min(720, page.width)
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: modelData
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }

    OrvDivider {
        x: Theme.pageSide
        y: parent.height - 1
        width: page.width
    }
}
