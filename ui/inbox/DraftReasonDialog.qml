import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// Asks why a draft was skipped.
OnDemand {
    id: root

    required property DraftReason reason

    shown: reason.form.shown

    sourceComponent: OrvDialog {
        title: "Why did you skip it?"
        text: "Your AI learns from it what to do otherwise for " + root.reason.contact + "."
        confirmText: "Send"
        confirmEnabled: (root.reason.draft.values.reason ?? "").trim() !== ""
        busy: root.reason.form.busy
        error: root.reason.form.error
        initialFocus: field
        onConfirmed: root.reason.submit()
        onCancelled: root.reason.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.reason.recovery
        }

        OrvTextArea {
            id: field
            width: parent.width
            label: "Reason"
            placeholder: "Too long, and it offers a call before the price."
            text: root.reason.draft.values.reason ?? ""
            onEdited: text => root.reason.draft.set("reason", text)
        }
    }
}
