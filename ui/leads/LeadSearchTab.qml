import QtQuick
import Orvella.Design
import Orvella.Leads

/// The search: its filters, and what they find.
FocusScope {
    id: root

    required property LeadsStore store
    readonly property LeadFinder finder: store.finder
    readonly property LeadResults results: finder.results
    readonly property bool narrow: width < 1000

    function focusTable() {
        view.table.focusRows();
    }

    LeadsHeader {
        id: header
        width: root.width
        store: root.store

        AllowanceNote {
            visible: !root.narrow
            allowance: root.store.leadActions.allowance
        }

        OrvButton {
            text: "Save this search…"
            iconName: "bookmark-new"
            iconOnly: root.narrow
            enabled: root.store.canWrite && root.finder.filters.any
            hint: root.finder.filters.any ? "" : "Set a filter first"
            onClicked: root.finder.save()
        }

        SavedSearchesButton {
            finder: root.finder
            canWrite: root.store.canWrite
        }
    }

    LeadFilterRail {
        id: rail
        y: header.height
        height: root.height - y
        finder: root.finder
        // The card takes from the results before they take from the filters.
        squeezed: view.shown && view.beside && root.width - 244 - view.detailWidth < 720
    }

    LeadResultsView {
        id: view
        x: rail.width
        y: header.height
        width: root.width - x
        height: root.height - y
        focus: true
        store: root.store
        results: root.results
        choice: root.finder.columns
        canWrite: root.store.canWrite
        view.emptyIcon: "system-users"
        view.emptyTitle: root.finder.filters.any ? "No leads match" : "No leads"
        view.emptyText: root.finder.filters.any ? "Loosen a filter or clear them all."
                                                : "Import a CSV from Lists to add your own leads."
        view.emptyAction: root.finder.filters.any ? "Clear filters" : "Go to Lists"
        view.onEmptyActionRequested: {
            if (root.finder.filters.any)
                root.finder.filters.clear();
            else
                root.store.tab = "lists";
        }
        head: ResultsHead {
            width: parent.width
            finder: root.finder
            onWalkedOut: root.focusTable()
        }
    }

    SaveSearchDialog {
        saved: root.finder.saved
    }

    SavedSearchesDialog {
        finder: root.finder
        canWrite: root.store.canWrite
    }
}
