import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Asks where a test email goes, and tells how it fares.
OnDemand {
    id: root

    required property TestEmailForm form
    readonly property bool asks: form.stage === "form" || form.stage === "sending"

    shown: form.shown

    sourceComponent: OrvDialog {
        title: "Send a test"
        text: root.asks ? "" : root.form.headline + "\n" + root.form.detail
        confirmText: root.asks ? "Send test" : "Send another"
        cancelText: root.asks && !root.form.waiting ? "Cancel" : "Close"
        confirmEnabled: root.form.hasSender
        busy: root.form.waiting
        error: root.form.error
        warning: !root.form.hasSender ? "Pick sender inboxes in Settings first; the test goes from the first ready one."
                                      : root.form.warnings.join("\n")
        initialFocus: root.form.hasSender ? field : null
        onConfirmed: root.asks ? root.form.submit() : root.form.show()
        onCancelled: root.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvField {
            id: field
            visible: root.asks
            width: parent.width
            label: "Send to"
            placeholder: "you@example.com"
            help: root.form.note
            text: root.form.to
            onEdited: text => root.form.to = text
        }
    }
}
