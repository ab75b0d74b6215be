import QtQuick
import Orvella.Leads

/// The lists of leads, or the archive of deleted ones in their place.
FocusScope {
    id: root

    required property LeadsStore store

    function focusTable() {
        content.item?.focusTable();
    }

    Loader {
        id: content

        readonly property var page: item

        anchors.fill: parent
        focus: true
        sourceComponent: root.store.lists.showArchived ? archive : live
        // Whoever went to the archive and back goes on with the keyboard where the content is.
        onLoaded: page.focusTable()
    }

    Component {
        id: live

        LiveLeadLists {
            store: root.store
        }
    }

    Component {
        id: archive

        ArchivedLeadLists {
            store: root.store.lists
        }
    }
}
