import QtQuick
import Orvella.Design
import Orvella.Accounts

/// An app registration of Microsoft 365; for a new account its address as well.
Column {
    id: root

    required property ConnectionForm form
    property bool newAccount: false
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems

    spacing: 16
    onVisibleChanged: if (visible && newAccount) address.forceActiveFocus(Qt.OtherFocusReason)

    Text {
        width: parent.width
        textFormat: Text.PlainText
        text: "An app registration in Microsoft Entra with Mail.Send and Mail.ReadWrite application permissions, granted by an admin."
        font: Theme.body
        color: Theme.text2
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        visible: root.newAccount
        spacing: 12

        OrvField {
            id: address
            width: (root.width - 12) / 2
            label: "Email address"
            placeholder: "ellen@fleet.example.com"
            text: root.values.address ?? ""
            error: root.errors.address ?? ""
            onEdited: text => root.form.set("address", text)
        }

        OrvField {
            width: (root.width - 12) / 2
            label: "Sender name"
            placeholder: "Ellen Marsh"
            text: root.values.displayName ?? ""
            onEdited: text => root.form.set("displayName", text)
        }
    }

    OrvField {
        width: parent.width
        label: "Tenant ID"
        placeholder: "00000000-0000-0000-0000-000000000000"
        text: root.values.tenantId ?? ""
        onEdited: text => root.form.set("tenantId", text)
    }

    OrvField {
        width: parent.width
        label: "Client ID"
        placeholder: "00000000-0000-0000-0000-000000000000"
        text: root.values.clientId ?? ""
        onEdited: text => root.form.set("clientId", text)
    }

    OrvField {
        width: parent.width
        label: "Client secret"
        help: "The secret's value, not its ID. It is stored encrypted and never shown again."
        secret: true
        text: root.form.clientSecret
        onEdited: text => root.form.clientSecret = text
    }
}
