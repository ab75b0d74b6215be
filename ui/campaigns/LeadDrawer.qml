import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// What is known of one lead, what happened, and its custom fields.
OnDemand {
    id: root

    required property CampaignLeads store
    required property bool canWrite
    readonly property LeadPanel panel: store.panel

    shown: panel.shown

    sourceComponent: OrvDrawer {
        title: root.panel.name
        asksToClose: true
        onCloseRequested: root.panel.dismiss()

        Column {
            width: parent.width
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
    }
}
