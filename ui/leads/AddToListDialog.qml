import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Adds leads to a list, and then says what came of it.
OnDemand {
    id: root

    required property AddToList adding
    readonly property bool ended: adding.ended

    shown: adding.form.shown

    sourceComponent: OrvDialog {
        title: "Add to list"
        lead: root.ended ? root.adding.summary : ""
        text: root.ended ? "" : root.adding.about
        confirmText: root.ended ? "Open list" : root.adding.submitLabel
        cancelText: root.ended ? "Done" : "Cancel"
        confirmEnabled: root.ended || root.adding.canSubmit
        busy: root.adding.form.busy
        error: root.adding.form.error
        initialFocus: fields.choice
        onConfirmed: root.ended ? root.adding.openList() : root.adding.submit()
        onCancelled: root.adding.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.adding.recovery
        }

        LeadListFields {
            id: fields
            visible: !root.ended
            enabled: !root.adding.form.busy
            width: parent.width
            picker: root.adding.list
        }

        OrvField {
            visible: !root.ended && root.adding.asksHowMany
            enabled: !root.adding.form.busy
            width: parent.width
            label: "How many"
            help: root.adding.howManyHelp
            text: root.adding.howMany
            error: root.adding.problem
            onEdited: text => root.adding.howMany = text
        }

        Column {
            visible: !root.ended
            width: parent.width
            spacing: 4

            Text {
                textFormat: Text.PlainText
                text: "Skip duplicates"
                font: Theme.smallStrong
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            OrvCheckbox {
                enabled: !root.adding.form.busy
                text: "Leads already in another list"
                checked: root.adding.skipInLists
                onToggled: root.adding.skipInLists = checked
            }

            OrvCheckbox {
                enabled: !root.adding.form.busy
                text: "Leads already in a campaign"
                checked: root.adding.skipInCampaigns
                onToggled: root.adding.skipInCampaigns = checked
            }
        }

        DialogText {
            visible: !root.ended && text !== "" && !root.adding.form.busy
            text: root.adding.need
            font: Theme.small
            color: Theme.text3
        }

        FactList {
            visible: root.ended
            width: parent.width
            title: ""
            facts: root.adding.result
        }
    }
}
