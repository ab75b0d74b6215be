import QtQuick
import Orvella.Design
import Orvella.App

/// The dialog of a NameForm.
OnDemand {
    id: root

    required property NameForm form

    shown: form !== null && form.shown

    sourceComponent: OrvDialog {
        title: root.form.title
        text: root.form.hint
        confirmText: root.form.submitLabel
        confirmEnabled: root.form.canSubmit
        busy: root.form.busy
        error: root.form.error
        initialFocus: field
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()
        onAboutToShow: field.selectAll()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvField {
            id: field
            width: parent.width
            label: root.form.label
            text: root.form.text
            onEdited: text => root.form.text = text
        }
    }
}
