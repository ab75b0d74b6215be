pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// One email as the lead gets it.
Rectangle {
    id: root

    required property SequencePreview preview

    implicitHeight: column.height + 28
    radius: Theme.radiusCard
    color: Theme.surface
    border { width: 1; color: Theme.border }

    Accessible.role: Accessible.StaticText
    Accessible.name: "From " + preview.from + ". To " + preview.to + ". Subject: " + preview.subject + ". " + preview.body

    Column {
        id: column
        x: 14
        y: 12
        width: parent.width - 28

        Repeater {
            model: [
                { label: "From", text: root.preview.from },
                { label: "To", text: root.preview.to },
                { label: "Subject", text: root.preview.subject }
            ]

            Item {
                id: fact

                required property var modelData
                required property int index

                width: column.width
                height: 19

                Text {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: fact.modelData.label
                    font: Theme.small
                    color: Theme.text2
                    Accessible.ignored: true
                }

                Text {
                    x: 54
                    width: parent.width - x
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    elide: fact.index < 2 ? Text.ElideMiddle : Text.ElideRight
                    textFormat: Text.PlainText
                    text: fact.modelData.text
                    font: Theme.small
                    color: fact.index < 2 ? Theme.text2 : Theme.text
                    Accessible.ignored: true
                }
            }
        }

        Item {
            width: parent.width
            height: 21

            Rectangle {
                y: 10
                width: parent.width
                height: 1
                color: Theme.border
            }
        }

        Text {
            width: parent.width
            textFormat: Text.PlainText
            text: root.preview.body
            font: Theme.body
            color: Theme.text
            wrapMode: Text.Wrap
            lineHeightMode: Text.FixedHeight
            lineHeight: 20
            Accessible.ignored: true
        }
    }
}
