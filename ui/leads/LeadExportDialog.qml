import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Asks how much of a list to export.
OnDemand {
    id: root

    required property LeadExport exporting
    readonly property bool busy: exporting.form.busy

    shown: exporting.form.shown

    sourceComponent: OrvDialog {
        title: "Export CSV"
        text: root.exporting.about
        confirmText: "Export CSV"
        confirmEnabled: root.exporting.canSubmit
        cancelText: root.busy ? "Hide" : "Cancel"
        error: root.exporting.form.error
        initialFocus: root.exporting.onlyTicked ? ticked : number
        onConfirmed: root.exporting.submit()
        onCancelled: root.exporting.form.cancel()

        OrvField {
            id: number
            width: parent.width
            enabled: !root.busy && !root.exporting.onlyTicked
            label: root.exporting.howManyLabel
            placeholder: "All of them"
            text: root.exporting.howMany
            error: root.exporting.onlyTicked ? "" : root.exporting.problem
            onEdited: text => root.exporting.howMany = text
        }

        OrvCheckbox {
            id: ticked
            visible: text !== ""
            enabled: !root.busy
            text: root.exporting.tickedText
            checked: root.exporting.onlyTicked
            onToggled: root.exporting.onlyTicked = checked
        }

        JobProgress {
            visible: root.busy
            width: parent.width
            form: root.exporting.form
        }
    }
}
