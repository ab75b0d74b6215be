import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// One project: its form, and its run.
FocusScope {
    id: root

    required property SetupProjectStore store

    Component.onCompleted: store.ensureLoaded()

    SetupProjectHeader {
        id: header
        width: root.width
        store: root.store
    }

    OrvTabs {
        id: tabs
        x: Theme.pageSide
        y: header.height
        width: root.width - 2 * x
        focus: true
        visible: root.store.project.state !== Resource.Error
        label: "Project sections"
        options: root.store.tabs
        current: root.store.tab
        onChosen: key => root.store.tab = key
    }

    OrvDivider {
        id: line
        y: tabs.y + tabs.height
        width: root.width
    }

    OrvNotice {
        id: notice
        visible: root.store.archived
        x: Theme.pageSide
        y: line.y + 12
        width: root.width - 2 * x
        text: "This project is archived. Restore it to edit or run it."
    }

    ResourceView {
        y: notice.visible ? notice.y + notice.height + 12 : line.y + line.height
        width: root.width
        height: root.height - y
        resource: root.store.project
        errorTitle: root.store.missing ? "Project not found" : "Couldn’t load the project."
        errorText: root.store.missing ? "It was deleted or belongs to another workspace." : resource.message
        errorAction: "Back to projects"
        onErrorActionRequested: root.store.openList()
        onRetryRequested: root.store.refresh()

        Loader {
            anchors.fill: parent
            active: root.store.project.hasContent
            sourceComponent: root.store.tab === "run" ? run : project
        }
    }

    Component {
        id: project

        ProjectTab {
            store: root.store
        }
    }

    Component {
        id: run

        RunTab {
            store: root.store
        }
    }

    NameFormDialog {
        form: root.store.rename
    }

    Shortcut {
        sequence: "Ctrl+Tab"
        onActivated: tabs.step(1)
    }

    Shortcut {
        sequence: "Ctrl+Shift+Tab"
        onActivated: tabs.step(-1)
    }
}
