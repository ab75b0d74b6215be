import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The conversations: which of them are shown, and the list.
FocusScope {
    id: root

    required property InboxStore store
    readonly property ThreadList threads: store.threads

    function focusRows() {
        rows.focusRows();
    }

    Text {
        id: title
        x: 16
        y: 16
        height: 24
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: "Inbox"
        font: Theme.pageTitle
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Row {
        x: root.width - width - 8
        y: 13
        height: Theme.controlHeight

        OrvButton {
            visible: root.store.canWrite
            kind: "ghost"
            text: "Check mail now"
            iconName: "view-refresh"
            hint: "Ask every mailbox for new replies"
            busy: root.threads.polling
            onClicked: root.store.act("check")
        }

        OrvButton {
            id: more
            kind: "ghost"
            iconOnly: true
            iconName: "overflow-menu"
            text: "More"
            onClicked: moreMenu.openAt(more, true)
        }
    }

    MenuLoader {
        id: moreMenu
        sourceComponent: OrvMenu {
            title: "More"

            OrvMenuItem {
                text: "Refresh"
                iconName: "view-refresh"
                shortcutText: "F5"
                onTriggered: root.store.refresh()
            }

            OrvMenuItem {
                visible: root.store.drafts !== null
                text: "Review drafts"
                iconName: "document-edit"
                onTriggered: root.store.section = "drafts"
            }

            OrvMenuItem {
                visible: root.store.agent !== null
                text: "Reply agent"
                iconName: "configure"
                onTriggered: root.store.section = "agent"
            }
        }
    }

    OrvSegments {
        id: tabs
        x: root.width < 320 ? 4 : 16
        y: 48
        width: Math.min(implicitWidth, root.width - 2 * x)
        label: "Conversations"
        options: root.threads.tabs
        current: root.threads.tab
        onChosen: key => {
            if (key === "drafts")
                root.store.section = "drafts";
            else
                root.threads.tab = key;
        }
    }

    ThreadFilters {
        id: filters
        x: 16
        y: 82
        width: root.width - 2 * x
        threads: root.threads
        onFinished: rows.focusRows()
    }

    OrvDivider {
        y: 120
        width: root.width
    }

    OrvButton {
        id: newMail
        visible: root.threads.newMail
        x: 8
        y: visible ? 125 : 121
        width: root.width - 16
        height: visible ? Theme.controlHeight : 0
        kind: "ghost"
        iconName: "mail-message"
        text: "New replies. Show them"
        onVisibleChanged: {
            if (visible)
                Announcer.say(text, "mail");
        }
        onClicked: {
            rows.goToTop();
            root.threads.showNewMail();
            rows.focusRows();
        }
    }

    ResourceView {
        y: newMail.y + newMail.height + (newMail.visible ? 4 : 0)
        width: root.width
        height: root.height - y
        resource: root.threads.list
        // The last one that matched may have been archived, and is kept while that can fail or be undone.
        hasContent: resource.hasContent && (rows.rows.count > 0 || root.threads.list.canLoadMore)
        skeletonRowHeight: rows.rowHeight
        skeletonTopInset: 0
        emptyIcon: "mail-folder-inbox"
        emptyTitle: root.threads.filtered || root.threads.tab !== "all" ? "No conversations match" : "No replies yet"
        emptyText: root.threads.filtered || root.threads.tab !== "all" ? "Try another status, mailbox or search."
            : "Replies to your mailboxes land here within a minute or two, labelled and with a draft ready."
        emptyAction: root.threads.filtered ? "Show all" : ""
        onEmptyActionRequested: root.threads.showAll()
        errorTitle: "Couldn’t load the inbox"
        onRetryRequested: root.threads.refresh()

        ThreadRows {
            id: rows
            anchors.fill: parent
            focus: true
            store: root.store
        }
    }
}
