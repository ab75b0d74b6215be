import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The list of campaigns: filters, search, sort and what can be done to each.
FocusScope {
    id: root

    required property CampaignsStore store

    // The narrowest window keeps the figures that people act on.
    readonly property bool narrow: width < 1000

    function focusTable() {
        table.focusRows();
    }

    PageHeader {
        id: header
        width: root.width
        title: "Campaigns"
        summary: root.store.summary

        OrvButton {
            kind: "ghost"
            text: "Archived"
            iconName: "archive-insert"
            count: root.store.archivedCount
            onClicked: root.store.showArchived = true
        }

        OrvButton {
            kind: "primary"
            text: "New campaign"
            iconName: "list-add"
            keys: "N"
            enabled: root.store.canCreate
            hint: root.store.createHint
            onClicked: root.store.beginCreate()
        }
    }

    FilterLine {
        id: filters
        y: header.height
        width: root.width

        leading: OrvSegments {
            label: "Status"
            options: root.store.statusCounts
            current: root.store.filter
            onChosen: key => root.store.filter = key
        }

        OrvField {
            id: search
            width: root.narrow ? 180 : 208
            search: true
            placeholder: "Search campaigns"
            text: root.store.query
            onEdited: text => root.store.query = text
            onAccepted: table.focusRows()
            onEscaped: table.focusRows()
            Keys.onDownPressed: table.focusRows()
        }

        TagFilter {
            store: root.store
        }

        OrvButton {
            kind: "ghost"
            iconOnly: true
            iconName: "view-refresh"
            text: "Refresh"
            keys: "F5"
            busy: root.store.list.refreshing
            onClicked: root.store.refresh()
        }
    }

    ResourceView {
        id: view
        y: filters.y + filters.height
        width: root.width
        height: root.height - y - foot.height
        resource: root.store.list
        skeletonColumns: table.columns
        emptyIcon: "mail-send"
        emptyTitle: "No campaigns yet"
        emptyText: "A campaign is a sequence of emails sent to a list of leads from inboxes that are ready to send."
        emptyAction: root.store.canCreate ? "New campaign" : ""
        errorTitle: "Couldn’t load campaigns"
        onEmptyActionRequested: root.store.beginCreate()
        onRetryRequested: root.store.refresh()

        OrvTable {
            id: table
            anchors.fill: parent
            focus: true
            title: "Campaigns"
            model: root.store.rows
            keyRole: "id"
            sortKey: root.store.sortKey
            sortDescending: root.store.sortDescending
            query: root.store.filter + "\n" + root.store.query + "\n" + root.store.tags
            columns: [
                OrvColumn { id: nameCells; key: "name"; title: "Campaign"; fill: true; sortable: true; minimumWidth: 200 },
                OrvColumn { id: statusCells; key: "status"; title: "Status"; preferredWidth: 92; sortable: true },
                OrvColumn { id: progressCells; key: "progress"; title: "Progress"; preferredWidth: 148; sortable: true },
                OrvColumn { id: sentCells; key: "sent"; title: "Sent"; preferredWidth: 60; alignment: Text.AlignRight; sortable: true },
                OrvColumn { id: repliedCells; key: "replied"; title: "Replied"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true },
                OrvColumn { id: positiveCells; key: "positive"; title: "Positive"; preferredWidth: 64; alignment: Text.AlignRight; sortable: true },
                OrvColumn { id: bouncedCells; key: "bounced"; title: "Bounced"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true; visible: !root.narrow },
                OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
            ]
            delegate: CampaignRow {
                nameColumn: nameCells
                statusColumn: statusCells
                progressColumn: progressCells
                sentColumn: sentCells
                repliedColumn: repliedCells
                positiveColumn: positiveCells
                bouncedColumn: bouncedCells
                actionsColumn: actionsCells
            }
            busyKeys: root.store.busyIds
            onSortRequested: key => root.store.toggleSort(key || root.store.sortKey)
            onOpened: key => root.store.open(key)
            onRenameRequested: key => root.store.beginRename(key)
            onDeleteRequested: key => root.store.remove(key)
            onCopyRequested: key => root.store.copyLink(key)
            onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        }

        OrvEmpty {
            anchors { fill: parent; topMargin: 32 }
            visible: root.store.rows.count === 0
            iconName: "view-filter"
            title: "No campaigns match"
            text: "Try another filter or search."
            actionText: "Show all"
            onActionRequested: {
                root.store.showAll();
                table.focusRows();
            }
        }
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: root.width
        countText: root.store.countText
        resource: root.store.list
    }

    CampaignMenu {
        id: menu
        store: root.store
    }

    Shortcut {
        sequences: ["/", StandardKey.Find]
        onActivated: {
            search.forceActiveFocus(Qt.ShortcutFocusReason);
            search.selectAll();
        }
    }

    Shortcut {
        sequences: ["F5", "Ctrl+R"]
        onActivated: root.store.refresh()
    }

    Shortcut {
        sequence: "Ctrl+D"
        enabled: table.activeFocus && table.currentKey !== ""
        onActivated: root.store.duplicate(table.currentKey)
    }
}
