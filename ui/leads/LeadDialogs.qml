import QtQuick
import Orvella.Leads

/// What is asked before something is done with leads and their lists: for the search, the lists and one list alike.
Item {
    id: root

    required property LeadActions actions

    AddToListDialog {
        adding: root.actions.listAdding
    }

    AddToCampaignDialog {
        adding: root.actions.campaignAdding
    }

    CsvImportDialog {
        importing: root.actions.importing
    }

    LeadListDialog {
        form: root.actions.lists.form
    }

    LeadExportDialog {
        exporting: root.actions.lists.exporting
    }
}
