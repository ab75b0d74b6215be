import QtQuick
import Orvella.Design
import Orvella.Analytics

/// What the figures can be narrowed to: one campaign, one inbox, one tag. Side by side, or one below the other.
Grid {
    id: root

    required property AnalyticsStore store
    property real choiceWidth: 148
    /// Labels above the choices; side by side the values say what they are.
    property bool labelled: false

    columns: labelled ? 1 : 3
    spacing: labelled ? 12 : 8

    OrvSelect {
        width: root.choiceWidth
        label: root.labelled ? "Campaign" : ""
        options: root.store.campaignOptions
        current: root.store.campaign
        onChosen: key => root.store.campaign = key
    }

    OrvSelect {
        width: root.choiceWidth
        label: root.labelled ? "Inbox" : ""
        options: root.store.mailboxOptions
        current: root.store.mailbox
        onChosen: key => root.store.mailbox = key
    }

    OrvSelect {
        width: root.choiceWidth
        label: root.labelled ? "Tag" : ""
        options: root.store.tagOptions
        current: root.store.tag
        onChosen: key => root.store.tag = key
    }
}
