import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The dialog that adds leads and shows how far that is.
OnDemand {
    id: root

    required property LeadAdding adding

    shown: adding.form.shown

    sourceComponent: OrvDialog {
        title: root.adding.title
        dialogWidth: root.adding.way === "csv" ? 640 : 480
        confirmText: root.adding.submitLabel
        confirmEnabled: root.adding.canSubmit
        cancelText: root.adding.form.busy ? "Hide" : root.adding.hasAdded ? "Done" : "Cancel"
        error: root.adding.form.error
        initialFocus: root.adding.way === "manual" ? byHand : null
        onConfirmed: root.adding.submit()
        onCancelled: root.adding.dismiss()

        LeadByHand {
            id: byHand
            width: parent.width
            visible: root.adding.way === "manual"
            enabled: !root.adding.form.busy
            adding: root.adding
        }

        LeadsFromFile {
            width: parent.width
            visible: root.adding.way === "csv"
            enabled: !root.adding.form.busy
            adding: root.adding
        }

        LeadsFromList {
            width: parent.width
            visible: root.adding.way === "list"
            enabled: !root.adding.form.busy
            adding: root.adding
        }

        OrvField {
            width: parent.width
            visible: root.adding.way === "leads"
            enabled: !root.adding.form.busy
            label: "How many"
            placeholder: "As many as there are"
            help: "Leave empty to add all of your leads, up to 100,000 at a time, newest first."
            text: root.adding.ownLimit
            error: root.adding.ownLimitError
            onEdited: text => root.adding.ownLimit = text
        }

        OrvCheckbox {
            visible: root.adding.way === "leads"
            enabled: !root.adding.form.busy
            text: "Also add leads that are in another campaign"
            checked: root.adding.allowOtherCampaigns
            onToggled: root.adding.allowOtherCampaigns = checked
        }

        OrvSelect {
            width: parent.width
            visible: root.adding.way !== "leads"
            enabled: !root.adding.form.busy
            label: "Leave out people who are in"
            options: [
                { key: "campaign", label: "This campaign" },
                { key: "workspace", label: "Any campaign of the workspace" }
            ]
            current: root.adding.dedupe
            onChosen: key => root.adding.dedupe = key
        }

        JobProgress {
            width: parent.width
            visible: root.adding.form.busy
            form: root.adding.form
        }
    }
}
