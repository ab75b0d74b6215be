import QtQuick
import Orvella.Campaigns

/// What is known of one lead, what happened, and its custom fields.
Column {
    id: root

    required property CampaignLeads store
    required property bool canWrite
    readonly property LeadPanel panel: store.panel

    spacing: 20

    LeadHeading {
        width: parent.width
        store: root.store
        canWrite: root.canWrite
    }

    LeadFacts {
        width: parent.width
        facts: root.panel.facts
    }

    LeadFields {
        width: parent.width
        visible: root.panel.fieldNames.length > 0
        panel: root.panel
        canWrite: root.canWrite
    }

    LeadActivityList {
        width: parent.width
        panel: root.panel
    }
}
