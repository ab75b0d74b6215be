import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// An account in the list.
OrvTableRow {
    id: root

    required property OrvColumn addressColumn
    required property OrvColumn phaseColumn
    required property OrvColumn standingColumn
    required property OrvColumn templateColumn
    required property OrvColumn warmupColumn
    required property OrvColumn campaignColumn
    required property OrvColumn inboxColumn
    required property OrvColumn actionsColumn

    required property string address
    required property string facts
    required property string phaseLabel
    required property string phaseTone
    required property bool pending
    required property list<stagePart> stages
    required property bool stopped
    required property string standingText
    required property string warning
    required property string template
    required property string warmupText
    required property string warmupPlan
    required property string campaignText
    required property string campaignPlan
    required property string inboxText
    required property string inboxTone

    /// The pointer is on the row.
    signal lookedAt(string key)

    label: address + ", " + phaseLabel

    onHoveredChanged: if (hovered) lookedAt(key)

    OrvTwoLineCell {
        column: root.addressColumn
        title: root.address
        detail: root.facts
    }

    OrvCell {
        column: root.phaseColumn
        label: root.phaseLabel

        OrvBadge {
            anchors.verticalCenter: parent.verticalCenter
            visible: !ring.shown
            text: root.phaseLabel
            tone: root.phaseTone
            shape: root.pending ? "ring" : "dot"
        }

        OrvBusyRing {
            id: ring
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            running: root.busy
            color: Theme.text2
        }
    }

    StandingCell {
        column: root.standingColumn
        stages: root.stages
        stopped: root.stopped
        text: root.standingText
        warning: root.warning
        onSelected: root.ticked
    }

    OrvTextCell {
        column: root.templateColumn
        text: root.template
        color: Theme.text2
    }

    OfPlanCell {
        column: root.warmupColumn
        text: root.warmupText
        plan: root.warmupPlan
    }

    OfPlanCell {
        column: root.campaignColumn
        text: root.campaignText
        plan: root.campaignPlan
    }

    HealthCell {
        column: root.inboxColumn
        health: root.inboxTone
        text: root.inboxText
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.address
    }
}
