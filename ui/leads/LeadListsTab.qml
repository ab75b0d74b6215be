import QtQuick
import Orvella.Leads

/// The lists of leads.
FocusScope {
    id: root

    required property LeadsStore store

    function focusTable() {
        forceActiveFocus(Qt.OtherFocusReason);
    }

    LeadsHeader {
        width: root.width
        store: root.store
    }
}
