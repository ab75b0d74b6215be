import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The lists, and beside them the imports that fill them.
FocusScope {
    id: root

    required property LeadsStore store
    readonly property LeadLists lists: store.lists
    /// The history stands beside the lists; in a narrow window it is a drawer.
    readonly property bool beside: Window.width >= 1180
    property bool historyAsked: false

    function focusTable() {
        table.focusRows();
    }

    LeadsHeader {
        id: header
        width: root.width
        store: root.store

        OrvButton {
            visible: !root.beside
            kind: "ghost"
            text: "Import history"
            iconName: "view-history"
            count: root.lists.imports.active > 0 ? root.lists.imports.active : -1
            onClicked: root.historyAsked = true
        }

        OrvButton {
            kind: "ghost"
            text: "Archived"
            iconName: "archive-insert"
            count: root.lists.archivedCount
            onClicked: root.lists.showArchived = true
        }

        OrvButton {
            text: "Import CSV"
            iconName: "document-import"
            enabled: root.store.canWrite
            hint: root.lists.createHint
            onClicked: root.lists.act("import")
        }

        OrvButton {
            kind: "primary"
            text: "New list"
            iconName: "list-add"
            keys: root.beside ? "N" : ""
            enabled: root.store.canWrite
            hint: root.lists.createHint
            onClicked: root.lists.act("new")
        }
    }

    ResourceView {
        id: view
        y: header.height
        width: root.width - (history.active ? history.width : 0)
        height: root.height - y - foot.height
        resource: root.lists.list
        skeletonTable: table
        emptyIcon: "system-users"
        emptyTitle: "No lists yet"
        emptyText: "Search for leads and save the results as a list, or create an empty one. Campaigns send to lists."
        emptyAction: root.store.canWrite ? "New list" : ""
        errorTitle: "Couldn’t load lists"
        onEmptyActionRequested: root.lists.act("new")
        onRetryRequested: root.lists.refresh()

        LeadListTable {
            id: table
            anchors.fill: parent
            focus: true
            store: root.lists
        }
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: view.width
        countText: root.lists.countText
        resource: root.lists.list
    }

    Loader {
        id: history
        active: root.beside
        x: root.width - width
        y: header.height
        width: Window.width >= 1680 ? 400 : 344
        height: root.height - y
        sourceComponent: ImportHistory {
            imports: root.lists.imports
            canWrite: root.store.canWrite
        }
    }

    OnDemand {
        shown: root.historyAsked && !root.beside
        sourceComponent: OrvDrawer {
            title: "Import history"
            asksToClose: true
            onCloseRequested: root.historyAsked = false

            ImportHistory {
                width: parent.width
                height: implicitHeight
                imports: root.lists.imports
                canWrite: root.store.canWrite
                inDrawer: true
            }
        }
    }
}
