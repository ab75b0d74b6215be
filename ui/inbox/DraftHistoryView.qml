pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// What was decided about drafts, in three lists.
FocusScope {
    id: root

    required property DraftHistory history

    OrvTabs {
        id: tabs
        x: Theme.pageSide
        width: root.width - 2 * x
        focus: true
        label: "What was decided"
        options: root.history.tabs
        current: root.history.tab
        onChosen: key => root.history.tab = key
    }

    OrvDivider {
        id: line
        y: tabs.height
        width: root.width
    }

    ResourceView {
        y: line.y + 1
        width: root.width
        height: root.height - y
        resource: root.history.list
        emptyIcon: "view-history"
        emptyTitle: "Nothing yet"
        emptyText: root.history.description
        errorTitle: "Couldn’t load your history"
        onRetryRequested: root.history.refresh()

        // Not the list's header: Qt 6.4 makes none in a file of bound components.
        Text {
            id: description
            x: Theme.pageSide
            y: 12
            width: Math.min(720, root.width - 2 * x)
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.history.description
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        ListView {
            id: list
            y: description.y + description.height + 4
            width: parent.width
            height: parent.height - y - foot.height
            activeFocusOnTab: true
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.history.list.rows
            bottomMargin: 20
            Accessible.role: Accessible.List
            Accessible.name: root.history.description
            onAtYEndChanged: if (atYEnd && root.history.list.canLoadMore && !foot.shown) root.history.list.loadMore()

            T.ScrollBar.vertical: OrvScrollBar {}
            RowFocus { target: list }

            delegate: DraftHistoryRow {
                width: list.width
                busy: Array.from(root.history.busyIds).includes(id)
                canPutBack: root.history.canPutBack
                onPutBackRequested: root.history.putBack(id)
            }
        }

        TableFoot {
            id: foot
            y: parent.height - height
            loading: root.history.list.loadingMore
            failed: root.history.list.moreFailed
            onFailedChanged: {
                if (failed)
                    Announcer.say("Couldn’t load more", "rows");
            }
            onRetryRequested: root.history.list.loadMore()
        }
    }
}
