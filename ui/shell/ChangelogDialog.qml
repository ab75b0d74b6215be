import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// What each version brought.
OnDemand {
    id: root

    required property ProgramModel program

    shown: program.changelogShown

    sourceComponent: OrvDialog {
        title: "What’s new in Orvella"
        text: root.program.changelog
        confirmText: ""
        cancelText: "Close"
        onCancelled: root.program.changelogShown = false
    }
}
