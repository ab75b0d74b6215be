import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// Whose names the inboxes get, and their photo.
SettingsSection {
    id: root

    required property SetupProjectStore store
    readonly property SetupForm form: store.form
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems
    readonly property real half: (width - 16) / 2
    readonly property string first: (values.firstName ?? "").trim().toLowerCase()
    readonly property string last: (values.lastName ?? "").trim().toLowerCase()

    title: "People"
    help: "Three inboxes a domain. Blank uses the name; type to pick your own."

    Row {
        spacing: 16

        OrvField {
            width: root.half
            label: "First name"
            text: root.values.firstName ?? ""
            error: root.errors.firstName ?? ""
            onEdited: text => root.form.set("firstName", text)
        }

        OrvField {
            width: root.half
            label: "Last name"
            text: root.values.lastName ?? ""
            error: root.errors.lastName ?? ""
            onEdited: text => root.form.set("lastName", text)
        }
    }

    Row {
        spacing: 16

        OrvField {
            width: root.half
            label: "Inbox 2"
            placeholder: root.first !== "" && root.last !== "" ? root.first[0] + "." + root.last : ""
            text: root.values.user2 ?? ""
            error: root.errors.user2 ?? ""
            onEdited: text => root.form.set("user2", text)
        }

        OrvField {
            width: root.half
            label: "Inbox 3"
            placeholder: root.last
            text: root.values.user3 ?? ""
            error: root.errors.user3 ?? ""
            onEdited: text => root.form.set("user3", text)
        }
    }

    PhotoBox {
        width: root.width
        photo: root.store.photo
    }
}
