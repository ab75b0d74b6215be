import QtQuick
import Orvella.Design
import Orvella.App

/// An inbox in the list.
OrvTableRow {
    id: root

    required property OrvColumn addressColumn
    required property OrvColumn stageColumn
    required property OrvColumn rateColumn
    required property OrvColumn checksColumn
    required property OrvColumn gmailColumn
    required property OrvColumn outlookColumn
    required property OrvColumn verdictColumn
    required property OrvColumn actionsColumn

    required property string address
    required property string brand
    required property string stageLabel
    required property string stageTone
    required property string rateText
    required property bool rateLow
    required property string checksText
    required property string checkCount
    required property string gmailText
    required property string outlookText
    required property string verdictText
    required property string reasonText

    label: address + ", " + stageLabel

    OrvTwoLineCell {
        column: root.addressColumn
        title: root.address
        detail: root.brand
    }

    OrvCell {
        column: root.stageColumn
        label: root.stageLabel

        OrvBadge {
            anchors.verticalCenter: parent.verticalCenter
            text: root.stageLabel
            tone: root.stageTone
        }
    }

    OrvTextCell {
        column: root.rateColumn
        text: root.rateText
        color: root.rateLow ? Theme.negative : Theme.text

        OrvTooltip { text: root.checksText }
    }

    OrvTextCell {
        column: root.checksColumn
        text: root.checkCount
        color: Theme.text2
    }

    OrvTextCell {
        column: root.gmailColumn
        text: root.gmailText
        color: Theme.text2
    }

    OrvTextCell {
        column: root.outlookColumn
        text: root.outlookText
        color: Theme.text2
    }

    OrvTwoLineCell {
        column: root.verdictColumn
        title: root.verdictText
        detail: root.reasonText
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.address
    }
}
