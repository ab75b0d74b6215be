import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The table that the stats tab shows, or what there is to say instead.
FocusScope {
    id: root

    required property CampaignStatsStore store
    /// Null while there are no rows.
    readonly property OrvTable table: shown.rowCount > 0 ? shown.item as OrvTable : null
    readonly property Resource resource: store.section === "messages" ? store.messages
                                       : store.section === "activity" ? store.feed : store.summary

    readonly property var words: ({
        inboxes: { icon: "mail-message", title: "No sends yet", text: "Figures by inbox appear once the campaign has sent." },
        emails: { icon: "mail-send", title: "No steps yet", text: "Write the sequence first." },
        messages: { icon: "mail-send", title: "Nothing sent yet", text: "Emails appear here as they are booked and sent." },
        activity: { icon: "view-history", title: "Nothing happened yet", text: "What the campaign does appears here." }
    })[store.section]

    ResourceView {
        anchors.fill: parent
        resource: root.resource
        skeletonRowHeight: 52
        emptyIcon: root.words.icon
        emptyTitle: root.words.title
        emptyText: root.words.text
        errorTitle: "Couldn’t load the stats"
        onRetryRequested: root.store.refreshSection()

        Loader {
            id: shown

            readonly property int rowCount: root.store.section === "inboxes" ? root.store.inboxRows.count
                                          : root.store.section === "emails" ? root.store.emailRows.count
                                          : root.store.section === "messages" ? root.store.messageRows.count
                                          : root.store.feed.rows.count

            anchors.fill: parent
            sourceComponent: root.store.section === "inboxes" ? inboxes : root.store.section === "emails" ? emails
                           : root.store.section === "messages" ? messages : activity
        }

        OrvEmpty {
            anchors { fill: parent; topMargin: 32 }
            visible: shown.rowCount === 0
            iconName: root.words.icon
            title: root.words.title
            text: root.words.text
        }
    }

    Component {
        id: inboxes

        StatsInboxes {
            store: root.store
        }
    }

    Component {
        id: emails

        StatsEmails {
            store: root.store
        }
    }

    Component {
        id: messages

        StatsEvents {
            title: "Messages"
            firstTitle: "Email"
            withState: true
            model: root.store.messageRows
        }
    }

    Component {
        id: activity

        StatsEvents {
            readonly property PagedList list: root.store.feed

            title: "Activity"
            firstTitle: "Activity"
            model: list.rows
            query: list.question
            canLoadMore: list.canLoadMore
            loadingMore: list.loadingMore
            moreFailed: list.moreFailed
            onMoreRequested: list.loadMore()
            onRowsSeen: (first, last) => list.see(first, last)
        }
    }
}
