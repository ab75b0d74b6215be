import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The search: its filters, and what they find.
FocusScope {
    id: root

    required property LeadsStore store
    readonly property LeadResults results: store.finder.results

    function focusTable() {
        table.focusRows();
    }

    LeadsHeader {
        id: header
        width: root.width
        store: root.store
    }

    ResourceView {
        y: header.height
        width: root.width
        height: root.height - y
        resource: root.results.list
        skeletonColumns: table.columns
        errorTitle: "Couldn’t load the leads"
        onRetryRequested: root.store.refresh()

        LeadTable {
            id: table
            anchors.fill: parent
            focus: true
            results: root.results
            canWrite: root.store.canWrite
        }
    }
}
