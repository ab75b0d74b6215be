import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// Asks for the new sign-in of an account.
OnDemand {
    id: root

    required property ReconnectAccount form
    readonly property bool byServers: form.connection.kind === "smtp"

    shown: form.shown

    sourceComponent: OrvDialog {
        title: "Reconnect " + root.form.address
        dialogWidth: 600
        confirmText: "Reconnect"
        confirmEnabled: root.form.canSubmit
        busy: root.form.busy
        error: root.form.error
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        SmtpFields {
            visible: root.byServers
            width: parent.width
            form: root.form.connection
        }

        MicrosoftFields {
            visible: !root.byServers
            width: parent.width
            form: root.form.connection
        }
    }
}
