import QtQuick
import Orvella.Design
import Orvella.Inbox

/// What the agent makes of the last decision.
Item {
    id: root

    required property TrainingFeedback feedback

    visible: feedback.shown
    height: visible ? Math.max(41, said.implicitHeight + 21) : 0

    OrvBusyRing {
        visible: root.feedback.training
        x: 13
        y: 12
    }

    OrvIcon {
        visible: !root.feedback.training
        x: 14
        y: 13
        size: 14
        name: root.feedback.learned ? "games-hint" : "checkmark"
        color: Theme.positive
    }

    Text {
        id: said
        x: 36
        y: 10
        width: (off.visible ? off.x : root.width) - x - 12
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.feedback.text + (root.feedback.detail !== "" ? " " + root.feedback.detail : "")
        font: Theme.body
        color: Theme.text
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvLink {
        id: off
        visible: root.feedback.canUndo
        x: root.width - width - 16
        height: 40
        text: "Undo"
        Accessible.name: "Undo, " + said.text
        onClicked: root.feedback.undo()
    }

    OrvDivider {
        y: parent.height - 1
        width: parent.width
    }
}
