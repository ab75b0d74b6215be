import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Names and describes a list.
OnDemand {
    id: root

    required property LeadListForm form

    shown: form.shown

    sourceComponent: OrvDialog {
        title: root.form.title
        text: root.form.hint
        confirmText: root.form.submitLabel
        confirmEnabled: root.form.canSubmit
        busy: root.form.busy
        error: root.form.error
        initialFocus: name
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()
        onAboutToShow: name.selectAll()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvField {
            id: name
            width: parent.width
            label: "List name"
            text: root.form.draft.values.name
            onEdited: text => root.form.draft.set("name", text)
        }

        OrvField {
            width: parent.width
            label: "Description"
            help: "Who is in it, or what it is for. Leave it empty for none."
            text: root.form.draft.values.description
            onEdited: text => root.form.draft.set("description", text)
        }
    }
}
