import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// The projects.
TablePage {
    id: root

    required property InboxSetupStore store

    title: "Inbox setup"
    summary: store.summary
    countText: store.countText
    resource: store.list
    view.skeletonTable: table
    view.emptyIcon: "tools-wizard"
    view.emptyTitle: "No projects yet"
    view.emptyText: "A project is a set of Google Workspace domains and the inboxes to create or connect on each. Make one and paste its domains."
    view.emptyAction: store.canWrite ? "New project" : ""
    view.errorTitle: "Couldn’t load the projects"
    view.onEmptyActionRequested: store.beginCreate()
    view.onRetryRequested: store.refresh()

    function focusTable() {
        table.focusRows();
    }

    actions: [
        OrvButton {
            kind: "ghost"
            text: "Archived"
            iconName: "archive-insert"
            count: root.store.archivedCount
            onClicked: root.store.showArchived = true
        },
        OrvButton {
            kind: "primary"
            text: "New project"
            iconName: "list-add"
            keys: "N"
            enabled: root.store.canWrite
            hint: root.store.createHint
            onClicked: root.store.beginCreate()
        }
    ]

    trailing: RefreshButton {
        resource: root.store.list
        onClicked: root.store.refresh()
    }

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Projects"
        name: "inbox-setup"
        model: root.store.rows
        keyRole: "id"
        busyKeys: root.store.busyIds
        columns: [
            OrvColumn { id: nameCells; key: "name"; title: "Project"; fill: true; minimumWidth: 200 },
            OrvColumn { id: modeCells; key: "mode"; title: "For"; preferredWidth: 128; yields: 2 },
            OrvColumn { id: domainsCells; key: "domains"; title: "Domains"; preferredWidth: 80; alignment: Text.AlignRight },
            OrvColumn { id: runCells; key: "run"; title: "Last run"; preferredWidth: 112 },
            OrvColumn { id: progressCells; key: "progress"; title: "Inboxes"; preferredWidth: 168 },
            OrvColumn { id: updatedCells; key: "updated"; title: "Changed"; preferredWidth: 88; yields: 1 },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
        ]
        delegate: ProjectRow {
            nameColumn: nameCells
            modeColumn: modeCells
            domainsColumn: domainsCells
            runColumn: runCells
            progressColumn: progressCells
            whenColumn: updatedCells
            actionsColumn: actionsCells
        }
        onOpened: key => root.store.open(key)
        onRenameRequested: key => root.store.act("rename", key)
        onDeleteRequested: key => root.store.act("delete", key)
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
