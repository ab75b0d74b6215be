import Orvella.Design
import Orvella.App
import Orvella.Shell

/// What is being saved before the person goes, and the ways not to wait for it.
OnDemand {
    id: root

    required property Departure departure

    shown: departure.saving

    sourceComponent: OrvDialog {
        dialogWidth: 400
        title: "Saving…"
        text: root.departure.text
        confirmText: root.departure.verb
        destructive: true
        onConfirmed: root.departure.goNow()
        onCancelled: root.departure.stay()
    }
}
