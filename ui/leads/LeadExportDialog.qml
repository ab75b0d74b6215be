import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Asks how much of a list to export.
OnDemand {
    id: root

    required property LeadExport exporting

    shown: exporting.form.shown

    sourceComponent: OrvDialog {
        title: "Export CSV"
        text: root.exporting.about
        confirmText: "Export CSV"
        confirmEnabled: root.exporting.canSubmit
        busy: root.exporting.form.busy
        error: root.exporting.form.error
        initialFocus: root.exporting.onlyTicked ? ticked : number
        onConfirmed: root.exporting.submit()
        onCancelled: root.exporting.form.cancel()

        OrvField {
            id: number
            width: parent.width
            enabled: !root.exporting.onlyTicked
            label: root.exporting.howManyLabel
            placeholder: "All of them"
            text: root.exporting.howMany
            error: root.exporting.onlyTicked ? "" : root.exporting.problem
            onEdited: text => root.exporting.howMany = text
        }

        OrvCheckbox {
            id: ticked
            visible: text !== ""
            text: root.exporting.tickedText
            checked: root.exporting.onlyTicked
            onToggled: root.exporting.onlyTicked = checked
        }
    }
}
