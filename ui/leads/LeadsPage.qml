import QtQuick
import Orvella.App
import Orvella.Leads

/// The search for leads, or their lists.
FocusScope {
    id: root

    required property LeadsStore store

    Component.onCompleted: store.ensureLoaded()

    PageSwitch {
        anchors.fill: parent
        sourceComponent: root.store.showLists ? lists : search
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
