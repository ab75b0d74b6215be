import QtQuick
import Orvella.Leads

/// The search for leads, or their lists.
FocusScope {
    id: root

    required property LeadsStore store

    Component.onCompleted: store.ensureLoaded()

    Loader {
        readonly property var content: item

        anchors.fill: parent
        focus: true
        sourceComponent: root.store.showLists ? lists : search
        // Whoever went elsewhere and back goes on with the keyboard where the content is.
        onLoaded: content.focusTable()
    }

    Component {
        id: search

        LeadSearchTab {
            store: root.store
        }
    }

    Component {
        id: lists

        LeadListsTab {
            store: root.store
        }
    }

    LeadDialogs {
        actions: root.store.leadActions
    }

    ImportDrop {
        enabled: root.store.canWrite
        onFileDropped: file => root.store.leadActions.importing.dropFile(file)
    }
}
