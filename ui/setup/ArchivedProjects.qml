import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// The projects that were deleted.
ArchivePage {
    id: root

    required property InboxSetupStore store

    actor: store
    backText: "Back to projects"
    title: "Deleted projects"
    summary: "Deleted projects wait here for 30 days, then go for good."
    countText: store.countText
    resource: store.archived
    view.skeletonTable: table
    view.emptyText: "Projects you delete wait here for 30 days."
    view.errorTitle: "Couldn’t load the projects"
    onBack: store.showArchived = false

    function focusTable() {
        table.focusRows();
    }

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Deleted projects"
        name: "inbox-setup-archive"
        model: root.store.archivedRows
        keyRole: "id"
        busyKeys: root.store.busyIds
        columns: [
            OrvColumn { id: nameCells; key: "name"; title: "Project"; fill: true; minimumWidth: 200 },
            OrvColumn { id: modeCells; key: "mode"; title: "For"; preferredWidth: 128; yields: 1 },
            OrvColumn { id: domainsCells; key: "domains"; title: "Domains"; preferredWidth: 80; alignment: Text.AlignRight },
            OrvColumn { id: archivedCells; key: "archived"; title: "Deleted"; preferredWidth: 96 },
            OrvColumn { id: goneCells; key: "gone"; title: "Goes for good"; preferredWidth: 112 },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 144; resizable: false }
        ]
        delegate: ProjectRow {
            nameColumn: nameCells
            modeColumn: modeCells
            domainsColumn: domainsCells
            whenColumn: archivedCells
            goneColumn: goneCells
            actionsColumn: actionsCells
            archived: true
            actor: root.store
        }
        onOpened: key => root.store.open(key)
        onMenuRequested: (key, row, x, y) => root.openMenu(key, row, x, y)
    }
}
