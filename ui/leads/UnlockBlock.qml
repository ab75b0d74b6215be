import QtQuick
import Orvella.Design
import Orvella.Leads

/// What unlocking a lead brings and costs.
Rectangle {
    id: root

    required property LeadAllowance allowance
    required property string leadId
    required property bool canWrite

    readonly property list<string> unlocking: [...allowance.busyIds]

    height: column.height + 24
    radius: Theme.radiusCard
    color: Theme.bg

    Column {
        id: column
        x: 12
        y: 12
        width: parent.width - 24
        spacing: 8

        Item {
            width: parent.width
            height: 40

            Text {
                textFormat: Text.PlainText
                width: parent.width - unlock.width - 12
                elide: Text.ElideRight
                text: "Unlock the email and phone"
                font: Theme.bodyStrong
                color: Theme.text
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            Text {
                y: 22
                textFormat: Text.PlainText
                text: root.allowance.usedText
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Accessible.ignored: text === ""
            }

            OrvButton {
                id: unlock
                x: parent.width - width
                y: 2
                kind: "primary"
                text: "Unlock"
                iconName: "object-unlocked"
                enabled: root.canWrite
                hint: root.canWrite ? "" : "Only members can unlock leads."
                busy: root.allowance.searchBusy || root.unlocking.includes(root.leadId)
                onClicked: root.allowance.unlockOne(root.leadId)
            }
        }

        OrvProgress {
            visible: root.allowance.known
            width: parent.width
            value: root.allowance.share
        }

        Text {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.allowance.note
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
