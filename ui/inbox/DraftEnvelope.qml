import QtQuick
import Orvella.Design
import Orvella.Inbox

/// From whom the draft goes, to whom, and its subject.
Item {
    id: root

    required property DraftsStore drafts

    height: 76

    Row {
        height: 38
        spacing: 8

        Repeater {
            model: [{ label: "To", value: root.drafts.address }, { label: "From", value: root.drafts.mailbox }]

            Row {
                id: line

                required property var modelData

                height: parent.height
                spacing: 8
                rightPadding: 12
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.label + " " + modelData.value

                Text {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: line.modelData.label
                    font: Theme.small
                    color: Theme.text3
                    Accessible.ignored: true
                }

                Text {
                    width: Math.min(implicitWidth, (root.width - 120) / 2)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideMiddle
                    textFormat: Text.PlainText
                    text: line.modelData.value
                    font: Theme.small
                    color: Theme.text
                    Accessible.ignored: true
                }
            }
        }
    }

    OrvDivider {
        x: -15
        y: 38
        width: parent.width + 30
    }

    Text {
        id: subjectLabel
        y: 38
        height: 38
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: "Subject"
        font: Theme.small
        color: Theme.text3
        Accessible.ignored: true
    }

    Text {
        x: subjectLabel.width + 8
        y: 38
        width: parent.width - x
        height: 38
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.drafts.subject
        font: Theme.small
        color: Theme.text
        Accessible.role: Accessible.StaticText
        Accessible.name: "Subject " + text
    }

    OrvDivider {
        x: -15
        y: 76
        width: parent.width + 30
    }
}
