import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// On which template a roadmap begins again.
OnDemand {
    id: root

    required property RampupAccountStore store

    shown: store.restarting.shown

    sourceComponent: OrvDialog {
        title: "Restart roadmap"
        text: "The account begins again on day 1 today: with few warm-up emails, and none for campaigns suggested at first."
        confirmText: "Restart"
        busy: root.store.restarting.busy
        error: root.store.restarting.error
        onConfirmed: root.store.restart()
        onCancelled: root.store.restarting.cancel()

        OrvSelect {
            width: parent.width
            label: "Template"
            options: root.store.templates
            current: root.store.restartOn
            placeholder: "The one that new accounts start on"
            onChosen: key => root.store.restartOn = key
        }
    }
}
