import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// The sign-in of each domain's admin.
SettingsSection {
    id: root

    required property SetupProjectStore store
    readonly property SetupForm form: store.form
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems
    readonly property real half: (width - 16) / 2

    title: "Google Admin"

    Row {
        spacing: 16

        OrvField {
            width: root.half
            focus: true
            label: "Admin username"
            help: "Letters, numbers, dots, dashes and underscores only"
            text: root.values.admin ?? ""
            error: root.errors.admin ?? ""
            onEdited: text => root.form.set("admin", text)
        }

        SecretBox {
            width: root.half
            label: "Password"
            help: root.store.makesInboxes ? "The reseller's first password. The run changes it to the new one below." : "Stays on the server. Never shown again."
            secret: root.form.password
        }
    }

    Row {
        spacing: 16

        SecretBox {
            width: root.half
            label: "Recovery email"
            help: "Set as the recovery address on every inbox."
            hidden: false
            shownText: root.store.savedRecovery
            secret: root.form.recoveryEmail
        }

        SecretBox {
            visible: root.store.makesInboxes
            width: root.half
            label: "New password"
            help: "Stays on the server. Never shown again."
            secret: root.form.newPassword
        }
    }
}
