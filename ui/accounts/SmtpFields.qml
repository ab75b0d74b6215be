import QtQuick
import Orvella.Design
import Orvella.Accounts

/// The servers of an account and how to sign in there; for a new one its address as well.
Column {
    id: root

    required property ConnectionForm form
    property bool newAccount: false
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems
    readonly property real half: (width - 12) / 2

    spacing: 16
    onVisibleChanged: if (visible && newAccount) address.forceActiveFocus(Qt.OtherFocusReason)

    Row {
        visible: root.newAccount
        spacing: 12

        OrvField {
            id: address
            width: root.half
            label: "Email address"
            placeholder: "ellen@fleet.example.com"
            text: root.values.address ?? ""
            error: root.errors.address ?? ""
            onEdited: text => root.form.set("address", text)
        }

        OrvField {
            width: root.half
            label: "Sender name"
            placeholder: "Ellen Marsh"
            text: root.values.displayName ?? ""
            onEdited: text => root.form.set("displayName", text)
        }
    }

    Row {
        spacing: 12

        OrvField {
            width: root.half
            label: "Username"
            text: root.values.username ?? ""
            onEdited: text => root.form.set("username", text)
        }

        OrvField {
            width: root.half
            label: "Password"
            help: "An app password when the provider has them."
            secret: true
            text: root.form.password
            onEdited: text => root.form.password = text
        }
    }

    OrvDivider {
        width: parent.width
    }

    ServerFields {
        width: parent.width
        label: "SMTP server"
        portLabel: "Port"
        secureText: "SSL (port 465)"
        placeholder: "smtp.example.com"
        prefix: "smtp"
        form: root.form
    }

    ServerFields {
        width: parent.width
        label: "IMAP (reading replies)"
        portLabel: "Port"
        secureText: "SSL (port 993)"
        placeholder: "imap.example.com"
        prefix: "imap"
        form: root.form
    }

    OrvCheckbox {
        text: "IMAP uses the same username and password"
        checked: root.values.sameLogin ?? true
        onToggled: root.form.set("sameLogin", checked)
    }

    Row {
        visible: !(root.values.sameLogin ?? true)
        spacing: 12

        OrvField {
            width: root.half
            label: "IMAP username"
            text: root.values.imapUsername ?? ""
            onEdited: text => root.form.set("imapUsername", text)
        }

        OrvField {
            width: root.half
            label: "IMAP password"
            secret: true
            text: root.form.imapPassword
            onEdited: text => root.form.imapPassword = text
        }
    }
}
