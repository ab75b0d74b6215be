import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Imports a file of leads: which file, what its columns become, and into which list.
OnDemand {
    id: root

    required property CsvImportForm importing
    readonly property bool busy: importing.form.busy
    readonly property bool chosen: importing.columns.count > 0

    shown: importing.form.shown

    sourceComponent: OrvDialog {
        title: "Import CSV"
        dialogWidth: 768
        confirmText: "Start import"
        confirmEnabled: root.importing.canSubmit
        cancelText: root.busy ? "Hide" : "Cancel"
        error: root.importing.form.error
        initialFocus: box.button
        onConfirmed: root.importing.submit()
        onCancelled: root.importing.dismiss()

        RestoredNotice {
            width: parent.width
            recovery: root.importing.recovery
        }

        FileBox {
            id: box
            width: parent.width
            enabled: !root.busy
            emptyHeight: 200
            name: root.importing.fileName
            facts: root.importing.fileFacts
            looking: root.importing.looking
            onChooseRequested: root.importing.chooseFile()
            onDropped: file => root.importing.dropFile(file)
        }

        ImportColumnsTable {
            visible: root.chosen
            enabled: !root.busy
            width: parent.width
            importing: root.importing
        }

        LeadListFields {
            visible: root.chosen
            enabled: !root.busy
            width: parent.width
            picker: root.importing.list
            nameError: root.importing.nameError
        }

        DialogText {
            visible: !root.busy
            font: Theme.small
            color: root.importing.need === "" || !root.chosen ? Theme.text2 : Theme.warning
            text: root.importing.need === "" ? "Leads you already have only gain blank fields, never overwritten." : root.importing.need
        }

        JobProgress {
            visible: root.busy
            width: parent.width
            form: root.importing.form
        }
    }
}
