import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// The templates that wait in the archive.
TablePage {
    id: root

    required property RoadmapTemplates templates

    title: "Archived templates"
    summary: "Archived templates wait here for 30 days, then go for good."
    countText: templates.countText
    resource: templates.archived
    view.skeletonTable: table
    view.emptyIcon: "archive-insert"
    view.emptyTitle: "Nothing archived"
    view.emptyText: "Templates you archive wait here for 30 days."
    view.errorTitle: "Couldn’t load the archive"
    view.onRetryRequested: templates.refresh()

    function focusTable() {
        table.focusRows();
    }

    leading: OrvButton {
        text: "Back to templates"
        iconName: "arrow-left"
        onClicked: root.templates.showArchived = false
    }

    trailing: RefreshButton {
        resource: root.templates.archived
        onClicked: root.templates.refresh()
    }

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Archived templates"
        name: "rampup-templates-archive"
        model: root.templates.archivedRows
        keyRole: "id"
        busyKeys: root.templates.busyIds
        columns: [
            OrvColumn { id: nameCells; key: "name"; title: "Template"; fill: true; minimumWidth: 200 },
            OrvColumn { id: lengthCells; key: "length"; title: "Length"; preferredWidth: 88 },
            OrvColumn { id: stagesCells; key: "stages"; title: "Stages"; preferredWidth: 280; yields: 1 },
            OrvColumn { id: archivedCells; key: "archived"; title: "Archived"; preferredWidth: 96 },
            OrvColumn { id: goneCells; key: "gone"; title: "Goes for good"; preferredWidth: 112 },
            OrvColumn { id: restoreCells; key: "restore"; title: "Restore"; titleHidden: true; preferredWidth: 104; visible: root.templates.canWrite; resizable: false },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
        ]
        delegate: TemplateRow {
            nameColumn: nameCells
            lengthColumn: lengthCells
            stagesColumn: stagesCells
            whenColumn: archivedCells
            goneColumn: goneCells
            restoreColumn: restoreCells
            actionsColumn: actionsCells
            archived: true
            onRestoreRequested: key => root.templates.act("restore", key)
        }
        onDeleteRequested: key => root.templates.act("delete", key)
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
    }

    ActionMenu {
        id: menu
        store: root.templates
    }
}
