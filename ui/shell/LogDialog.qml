import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// What the program has written down of itself, and what of it may be handed on.
OnDemand {
    id: root

    required property ProgramModel program

    shown: program.logShown

    sourceComponent: OrvDialog {
        title: "Log"
        text: "Diagnostics are the version, this system and the ids of the last requests. They name nobody."
        dialogWidth: 768
        confirmText: "Copy diagnostics"
        cancelText: "Close"
        onConfirmed: root.program.copyDiagnostics()
        onCancelled: root.program.logShown = false

        OrvTextArea {
            width: parent.width
            leastHeight: 360
            mostHeight: 360
            label: "Newest last"
            readOnly: true
            text: root.program.log
        }
    }
}
