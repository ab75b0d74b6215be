import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// By how many days a roadmap gets longer.
OnDemand {
    id: root

    required property RampupAccountStore store

    shown: store.extending.shown

    sourceComponent: OrvDialog {
        title: "Extend roadmap"
        text: "The stage that the account is in gets longer; the stages after it begin later."
        confirmText: "Extend"
        busy: root.store.extending.busy
        error: root.store.extending.error
        initialFocus: field
        onConfirmed: root.store.extend()
        onCancelled: root.store.extending.cancel()
        onAboutToShow: field.selectAll()

        OrvField {
            id: field
            width: 140
            label: "Days"
            text: root.store.extendDays
            inputMethodHints: Qt.ImhDigitsOnly
            onEdited: text => root.store.extendDays = text
        }
    }
}
