import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// Invites a teammate by their address.
OnDemand {
    id: root

    required property InviteForm form

    shown: form.shown

    sourceComponent: OrvDialog {
        title: "Invite a teammate"
        text: "They join when they sign in with Google using this email address."
        confirmText: "Send invite"
        confirmEnabled: root.form.canSubmit
        busy: root.form.busy
        error: root.form.error
        initialFocus: email
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvField {
            id: email
            width: parent.width
            label: "Email"
            placeholder: "ellen@company.com"
            text: root.form.email
            error: root.form.emailProblem
            onEdited: text => root.form.set("email", text)
        }

        OrvSelect {
            width: parent.width
            label: "Role"
            options: root.form.roles
            current: root.form.role
            onChosen: key => root.form.set("role", key)
        }
    }
}
