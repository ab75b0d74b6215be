import QtQuick
import Orvella.App
import Orvella.Inbox

/// On which campaigns the agent works; a click moves one over.
SettingsSection {
    id: root

    required property AgentCampaigns campaigns

    signal retryRequested()

    key: "campaigns"
    title: "Campaigns"
    help: "The AI replies and follows up only on campaigns in Active. Click a campaign to move it."

    ResourceView {
        width: parent.width
        height: root.campaigns.modes.hasContent ? campaigns.height + (campaigns.parent?.y ?? 0) : 160
        resource: root.campaigns.modes
        errorTitle: "Couldn’t load the campaigns"
        onRetryRequested: root.retryRequested()

        // Without them the lists would say that there are none.
        ResourceView {
            id: campaigns
            width: parent.width
            height: root.campaigns.campaigns.hasContent ? lists.height + (lists.parent?.y ?? 0) : 160
            resource: root.campaigns.campaigns
            errorTitle: "Couldn’t load the campaigns"
            onRetryRequested: root.retryRequested()

            Row {
                id: lists
                width: parent.width
                spacing: 32

                AgentCampaignList {
                    width: (parent.width - 32) / 2
                    title: "Active"
                    active: true
                    count: root.campaigns.activeCount
                    model: root.campaigns.active
                    emptyText: "No active campaigns. Click one in Inactive to switch the AI on for it."
                    editable: root.campaigns.canWrite
                    onMoved: id => root.campaigns.move(id)
                }

                AgentCampaignList {
                    width: (parent.width - 32) / 2
                    title: "Inactive"
                    count: root.campaigns.inactiveCount
                    model: root.campaigns.inactive
                    emptyText: "Every campaign is active."
                    editable: root.campaigns.canWrite
                    onMoved: id => root.campaigns.move(id)
                }
            }
        }
    }
}
