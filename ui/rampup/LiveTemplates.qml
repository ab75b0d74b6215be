import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// The templates of roadmaps.
TablePage {
    id: root

    required property RampupStore store
    readonly property RoadmapTemplates templates: store.templates

    title: "Rampup"
    countText: templates.countText
    resource: templates.list
    view.skeletonTable: table
    view.emptyIcon: "view-calendar-timeline"
    view.emptyTitle: "No templates yet"
    view.emptyText: "A template is a roadmap that accounts get a copy of."
    view.emptyAction: templates.canWrite ? "New template" : ""
    view.errorTitle: "Couldn’t load the templates"
    view.onEmptyActionRequested: templates.beginCreate()
    view.onRetryRequested: templates.refresh()

    function focusTable() {
        table.focusRows();
    }

    actions: [
        RampupSections {
            store: root.store
        },
        OrvButton {
            kind: "ghost"
            text: "Archived"
            iconName: "archive-insert"
            count: root.templates.archivedCount
            onClicked: root.templates.showArchived = true
        },
        OrvButton {
            kind: "primary"
            text: "New template"
            iconName: "list-add"
            keys: "N"
            enabled: root.templates.canWrite
            hint: root.templates.createHint
            onClicked: root.templates.beginCreate()
        }
    ]

    trailing: RefreshButton {
        resource: root.templates.list
        onClicked: root.templates.refresh()
    }

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Templates"
        name: "rampup-templates"
        model: root.templates.rows
        keyRole: "id"
        busyKeys: root.templates.busyIds
        columns: [
            OrvColumn { id: nameCells; key: "name"; title: "Template"; fill: true; minimumWidth: 200 },
            OrvColumn { id: lengthCells; key: "length"; title: "Length"; preferredWidth: 88 },
            OrvColumn { id: stagesCells; key: "stages"; title: "Stages"; preferredWidth: 320 },
            OrvColumn { id: updatedCells; key: "updated"; title: "Changed"; preferredWidth: 96; yields: 1 },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
        ]
        delegate: TemplateRow {
            nameColumn: nameCells
            lengthColumn: lengthCells
            stagesColumn: stagesCells
            whenColumn: updatedCells
            actionsColumn: actionsCells
        }
        onOpened: key => root.templates.act("edit", key)
        onRenameRequested: key => root.templates.act("rename", key)
        onDeleteRequested: key => root.templates.act("archive", key)
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
    }

    ActionMenu {
        id: menu
        store: root.templates
    }
}
