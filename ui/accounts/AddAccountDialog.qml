import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// Adds accounts: first the way, then what that way needs.
OnDemand {
    id: root

    required property AddAccount form
    readonly property string way: form.way
    readonly property bool byGoogle: way === "google"

    shown: form.shown

    sourceComponent: OrvDialog {
        title: root.form.title
        text: root.way !== "none" ? "" : root.form.canWrite ? "Where does the inbox live?" : "Only members can add accounts."
        dialogWidth: root.way === "smtp" || root.way === "none" ? 600 : 560
        error: root.byGoogle ? root.form.google.problem : root.form.error
        busy: root.form.busy || root.form.google.connecting
        confirmText: {
            switch (root.way) {
            case "none": return "";
            case "google": return google.verb;
            default: return "Add and check";
            }
        }
        confirmIcon: root.byGoogle && root.form.google.stage === "steps" ? "internet-services" : ""
        confirmEnabled: root.byGoogle ? google.verbEnabled : root.form.canSubmit
        cancelText: root.byGoogle && google.closes ? "Close" : "Cancel"
        asideText: root.way === "none" || (root.byGoogle && root.form.google.stage === "outcome") ? "" : "Back"
        initialFocus: root.form.canWrite ? firstWay : null
        onConfirmed: root.byGoogle ? google.act() : root.form.submit()
        onCancelled: root.form.cancel()
        onAsideChosen: root.form.back()

        RestoredNotice {
            visible: said !== "" && !root.byGoogle
            width: parent.width
            recovery: root.form.recovery
        }

        Column {
            visible: root.way === "none" && root.form.canWrite
            width: parent.width
            spacing: 8
            // Back from a way, or with the dialog.
            onVisibleChanged: if (visible) firstWay.forceActiveFocus(Qt.OtherFocusReason)

            AddAccountWay {
                id: firstWay
                width: parent.width
                title: "Google Workspace"
                badge: "Recommended"
                detail: "Every inbox on your domain at once. One click in Google Admin, nothing to type per inbox."
                onClicked: root.form.choose("google")
            }

            AddAccountWay {
                width: parent.width
                title: "Microsoft 365 / Outlook"
                detail: "An app registration from your Microsoft admin: tenant, client id and secret."
                onClicked: root.form.choose("microsoft")
            }

            AddAccountWay {
                width: parent.width
                title: "SMTP / IMAP"
                detail: "Any other email provider: the server addresses and an app password."
                onClicked: root.form.choose("smtp")
            }
        }

        GoogleConnectForm {
            id: google
            visible: root.byGoogle
            width: parent.width
            adding: root.form
        }

        MicrosoftFields {
            visible: root.way === "microsoft"
            width: parent.width
            form: root.form.connection
            newAccount: true
        }

        SmtpFields {
            visible: root.way === "smtp"
            width: parent.width
            form: root.form.connection
            newAccount: true
        }
    }
}
