import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Asks under which name the filters on the screen are kept.
OnDemand {
    id: root

    required property SavedSearches saved
    readonly property NameForm form: saved.form

    shown: form.shown

    sourceComponent: OrvDialog {
        id: dialog

        readonly property bool replaces: root.saved.choices.length > 0 && root.saved.replaces(field.text)

        title: root.form.title
        text: root.form.hint
        confirmText: root.form.submitLabel
        confirmEnabled: root.form.canSubmit
        busy: root.form.busy
        error: root.form.error
        initialFocus: field
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()

        OrvField {
            id: field
            width: parent.width
            label: root.form.label
            placeholder: "e.g. US insurance owners"
            text: root.form.text
            help: dialog.replaces ? "Replaces the search of this name" : ""
            onEdited: text => root.form.text = text
        }
    }
}
