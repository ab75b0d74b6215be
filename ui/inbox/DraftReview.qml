import QtQuick
import Orvella.App
import Orvella.Inbox

/// The draft that is shown beside its conversation, and under it what was decided last.
FocusScope {
    id: root

    required property InboxStore store
    required property DraftsStore drafts

    ResourceView {
        width: root.width
        height: root.height - (after.visible && !body.visible ? after.height + 32 : 0)
        resource: root.drafts.queue.list
        emptyIcon: "checkmark"
        emptyTitle: "All caught up"
        emptyText: "When a prospect replies, your AI writes a draft and it lands here for you to send."
        errorTitle: "Couldn’t load your drafts"
        onRetryRequested: root.drafts.refresh()
        skeleton: Component { DraftSkeleton {} }

        FocusScope {
            id: body
            anchors.fill: parent
            visible: root.drafts.queue.picked !== ""
            focus: true

            DraftContext {
                id: context
                width: root.width >= 1300 ? 440 : root.width >= 1100 ? 396 : 320
                height: parent.height
                store: root.store
                drafts: root.drafts
            }

            DraftCard {
                x: context.width + 28
                y: 20
                width: Math.min(parent.width - x - 28, 860)
                height: parent.height - y - (after.visible ? after.height + 32 : 20)
                focus: true
                store: root.store
                drafts: root.drafts
            }
        }
    }

    DraftDecisionList {
        id: after
        visible: count > 0 || root.drafts.feedback.shown
        x: body.visible ? context.width + 28 : Math.max(24, (root.width - 772) / 2)
        y: root.height - height - 16
        width: Math.min(root.width - x - 28, 860)
        mostHeight: Math.min(156, root.height / 3)
        drafts: root.drafts
    }
}
