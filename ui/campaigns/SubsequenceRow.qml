import QtQuick
import Orvella.Design
import Orvella.App

/// A subsequence in its parent's table.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn statusColumn
    required property OrvColumn stepsColumn
    required property OrvColumn leadsColumn
    required property OrvColumn sentColumn
    required property OrvColumn repliedColumn

    required property string name
    required property string trigger
    required property string statusWord
    required property string statusLabel
    required property string steps
    required property string leads
    required property string sent
    required property string replied

    label: name + ", " + statusLabel

    OrvTwoLineCell {
        column: root.nameColumn
        title: root.name
        detail: root.trigger
    }

    OrvCell {
        column: root.statusColumn
        label: root.statusLabel

        CampaignBadge {
            anchors.verticalCenter: parent.verticalCenter
            status: root.statusWord
            text: root.statusLabel
        }
    }

    OrvTextCell {
        column: root.stepsColumn
        text: root.steps
    }

    OrvTextCell {
        column: root.leadsColumn
        text: root.leads
    }

    OrvTextCell {
        column: root.sentColumn
        text: root.sent
    }

    OrvTextCell {
        column: root.repliedColumn
        text: root.replied
    }
}
