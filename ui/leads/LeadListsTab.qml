import QtQuick
import Orvella.App
import Orvella.Leads

/// The lists of leads, or the archive of deleted ones in their place.
FocusScope {
    id: root

    required property LeadsStore store

    function focusTable() {
        content.item?.focusTable();
    }

    PageSwitch {
        id: content

        anchors.fill: parent
        sourceComponent: root.store.lists.showArchived ? archive : live
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
