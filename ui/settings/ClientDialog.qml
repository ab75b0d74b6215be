import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// Makes a client's workspace and invites them into it.
OnDemand {
    id: root

    required property ClientForm form
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems

    shown: form.shown

    sourceComponent: OrvDialog {
        title: "New client workspace"
        confirmText: "Create workspace"
        busy: root.form.busy
        error: root.form.error
        initialFocus: workspace
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvField {
            id: workspace
            width: parent.width
            label: "Workspace name"
            text: root.values.workspace ?? ""
            error: root.errors.workspace ?? ""
            onEdited: text => root.form.set("workspace", text)
        }

        OrvField {
            width: parent.width
            label: "Client’s name"
            text: root.values.name ?? ""
            error: root.errors.name ?? ""
            onEdited: text => root.form.set("name", text)
        }

        OrvField {
            width: parent.width
            label: "Client’s email"
            text: root.values.email ?? ""
            error: root.errors.email ?? ""
            onEdited: text => root.form.set("email", text)
        }
    }
}
