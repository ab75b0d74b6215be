import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The agent's drafts that wait for a decision, one at a time, or what was decided.
FocusScope {
    id: root

    required property InboxStore store
    readonly property DraftsStore drafts: store.drafts as DraftsStore
    readonly property DraftQueue queue: drafts.queue

    function takeFocus() {
        (content.item as Item)?.forceActiveFocus(Qt.OtherFocusReason);
    }

    function compareCounts() {
        const counted = Array.from(store.sections).find(section => section.key === "drafts");
        queue.expect(counted ? counted.count : -1);
    }

    Component.onCompleted: {
        drafts.appear();
        drafts.ensureLoaded();
        compareCounts();
    }
    Component.onDestruction: drafts.disappear()

    Connections {
        target: root.store

        function onSectionsChanged() {
            root.compareCounts();
        }
    }

    InboxHead {
        id: head
        width: root.width
        store: root.store

        Row {
            visible: !root.drafts.historyShown && root.queue.waiting > 0
            height: Theme.controlHeight
            spacing: 4

            OrvButton {
                kind: "ghost"
                iconOnly: true
                iconName: "go-previous"
                text: "Previous draft"
                enabled: root.queue.hasPrevious
                onClicked: root.queue.goBack()
            }

            Text {
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.queue.positionText
                font: Theme.body
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            OrvButton {
                kind: "ghost"
                iconOnly: true
                iconName: "go-next"
                text: "Next draft"
                enabled: root.queue.hasNext
                onClicked: root.queue.goForward()
            }
        }

        RefreshButton {
            resource: root.drafts.historyShown ? root.drafts.history.list : root.queue.list
            onClicked: root.store.act("refresh")
        }

        OrvButton {
            text: root.drafts.historyShown ? "Back to drafts" : "History"
            iconName: root.drafts.historyShown ? "go-previous" : "view-history"
            onClicked: root.store.act("history")
        }
    }

    Loader {
        id: content
        y: head.height
        width: root.width
        height: root.height - y
        focus: true
        sourceComponent: root.drafts.historyShown ? history : review
        onLoaded: if (root.activeFocus) root.takeFocus()
    }

    Component {
        id: review

        DraftReview {
            store: root.store
            drafts: root.drafts
        }
    }

    Component {
        id: history

        DraftHistoryView {
            history: root.drafts.history
        }
    }

    DraftReasonDialog {
        reason: root.drafts.reason
    }
}
