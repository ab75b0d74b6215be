import QtQuick
import Orvella.Design

/// A campaign that a lead is or was in.
Item {
    id: root

    required property string name
    required property string detail
    required property string status
    required property string statusLabel

    signal opened()

    height: 30

    OrvLink {
        quiet: true
        width: Math.min(implicitWidth, root.width - detailText.width - badge.width - 20)
        height: parent.height
        text: root.name
        onClicked: root.opened()
    }

    Text {
        id: detailText
        x: badge.x - width - 8
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.detail
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvBadge {
        id: badge
        x: parent.width - width
        anchors.verticalCenter: parent.verticalCenter
        text: root.statusLabel
        tone: {
            switch (root.status) {
            case "active": return "positive";
            case "completed":
            case "replied": return "accent";
            case "paused": return "warning";
            case "bounced":
            case "unsubscribed": return "negative";
            default: return "neutral";
            }
        }
    }
}
