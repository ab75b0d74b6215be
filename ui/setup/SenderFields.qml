import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// How the connected inboxes send.
SettingsSection {
    id: root

    required property SetupForm form
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems
    readonly property real half: (width - 16) / 2

    title: "Sender settings"

    Row {
        spacing: 16

        OrvField {
            width: root.half
            label: "Sender name"
            help: "Blank uses the first and last name."
            placeholder: ((root.values.firstName ?? "") + " " + (root.values.lastName ?? "")).trim()
            text: root.values.senderName ?? ""
            onEdited: text => root.form.set("senderName", text)
        }

        OrvNumberField {
            width: (root.half - 16) / 2
            label: "Daily limit"
            from: 0
            to: 2000
            clearable: true
            keepsText: true
            text: root.values.dailyLimit ?? ""
            error: root.errors.dailyLimit ?? ""
            onTyped: text => root.form.set("dailyLimit", text)
        }

        OrvNumberField {
            width: (root.half - 16) / 2
            label: "Minimum wait"
            help: "Minutes between two sends."
            from: 0
            to: 1440
            clearable: true
            keepsText: true
            text: root.values.minWait ?? ""
            error: root.errors.minWait ?? ""
            onTyped: text => root.form.set("minWait", text)
        }
    }

    Row {
        spacing: 16

        OrvTextArea {
            width: root.half
            label: "Signature"
            text: root.values.signature ?? ""
            onEdited: text => root.form.set("signature", text)
        }

        OrvTagEditor {
            width: root.half
            label: "Tags"
            help: "Comma separated. Set on every connected inbox."
            placeholder: "Add a tag"
            tags: root.form.tags
            onAdded: texts => root.form.addTags(texts)
            onRemoved: key => root.form.removeTag(key)
        }
    }
}
