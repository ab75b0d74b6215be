import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// An account's warm-up: in a sentence, then setting by setting; "Edit" turns the settings into fields in place.
Column {
    id: root

    required property RampupAccountStore store
    readonly property WarmupForm form: store.warmup
    readonly property var values: form.draft.values

    function onOff(on): string {
        return on ? "On" : "Off";
    }

    spacing: 12

    Item {
        width: root.width
        height: Theme.controlHeight

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Warm-up settings"
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        OrvButton {
            visible: !root.form.editing && root.form.canWrite
            anchors.right: parent.right
            size: "small"
            text: "Edit"
            iconName: "document-edit"
            onClicked: root.form.edit()
        }
    }

    Text {
        width: root.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.store.warmupText
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    RestoredNotice {
        width: root.width
        recovery: root.form.recovery
    }

    FactList {
        visible: !root.form.editing
        width: root.width
        title: ""
        facts: [
            { key: "enabled", label: "Warm-up", detail: root.onOff(root.values.enabled) },
            { key: "dailyLimit", label: "Daily limit", detail: root.values.dailyLimit },
            { key: "increasePerDay", label: "Increase per day", detail: root.values.increasePerDay || "–" },
            { key: "replyRate", label: "Reply rate", detail: root.values.replyRate + "%" },
            { key: "openRate", label: "Open rate", detail: root.values.openRate + "%" },
            { key: "importantRate", label: "Important rate", detail: root.values.importantRate + "%" },
            { key: "spamSaveRate", label: "Spam save rate", detail: root.values.spamSaveRate + "%" },
            { key: "filterTag", label: "Filter tag", detail: root.values.filterTag || "–" },
            { key: "readEmulation", label: "Read emulation", detail: root.onOff(root.values.readEmulation) },
            { key: "warmTrackingDomain", label: "Warm tracking domain", detail: root.onOff(root.values.warmTrackingDomain) },
            { key: "weekdaysOnly", label: "Weekdays only", detail: root.onOff(root.values.weekdaysOnly) }
        ]
    }

    Loader {
        active: root.form.editing
        visible: active
        width: root.width
        sourceComponent: WarmupFields {
            form: root.form
        }
    }
}
