pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// The warm-up's settings as fields, with what saves them.
Column {
    id: root

    required property WarmupForm form
    readonly property FieldDraft draft: form.draft

    spacing: 14

    Check { field: "enabled"; text: "Warm-up" }
    Entry { field: "dailyLimit"; label: "Daily limit" }
    Entry { field: "increasePerDay"; label: "Increase per day" }
    Entry { field: "replyRate"; label: "Reply rate, %" }
    Entry { field: "openRate"; label: "Open rate, %" }
    Entry { field: "importantRate"; label: "Important rate, %" }
    Entry { field: "spamSaveRate"; label: "Spam save rate, %" }
    Entry { field: "filterTag"; label: "Filter tag" }
    Check { field: "readEmulation"; text: "Read emulation" }
    Check { field: "warmTrackingDomain"; text: "Warm tracking domain" }
    Check { field: "weekdaysOnly"; text: "Weekdays only" }

    OrvNotice {
        visible: text !== ""
        width: root.width
        text: root.form.rivals
    }

    Row {
        spacing: 8

        OrvButton {
            kind: "primary"
            text: "Save"
            busy: root.form.saving
            enabled: root.form.canSave
            onClicked: root.form.save()
        }

        OrvButton {
            text: root.draft.dirty ? "Discard" : "Cancel"
            enabled: !root.form.saving
            onClicked: root.form.cancel()
        }
    }

    component Entry: OrvField {
        property string field: ""

        width: root.width
        text: root.draft.values[field] ?? ""
        error: root.draft.problems[field] ?? ""
        enabled: !root.form.saving
        onEdited: text => root.draft.set(field, text)
        onAccepted: root.form.save()
    }

    component Check: OrvCheckbox {
        property string field: ""

        checked: root.draft.values[field] ?? false
        enabled: !root.form.saving
        onToggled: root.draft.set(field, checked)
    }
}
