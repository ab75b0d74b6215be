import QtQuick
import Orvella.Design
import Orvella.Leads

/// How many leads can still be unlocked.
Row {
    id: root

    required property LeadAllowance allowance

    height: Theme.controlHeight
    spacing: 6
    opacity: allowance.known ? 1 : 0
    Accessible.role: Accessible.StaticText
    Accessible.name: allowance.leftText
    Accessible.description: allowance.note

    OrvIcon {
        anchors.verticalCenter: parent.verticalCenter
        size: 14
        name: "object-unlocked"
        color: Theme.text2
    }

    Text {
        height: parent.height
        rightPadding: 8
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.allowance.leftText
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvTooltip {
        text: root.allowance.note
    }
}
