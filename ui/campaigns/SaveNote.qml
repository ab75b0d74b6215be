import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// Whether the service has the sequence as it stands here.
Row {
    id: root

    required property SequenceAutosave autosave
    /// What comes of it stands on the page as well, and is told from there.
    property bool explained: false
    readonly property string word: autosave.saveState
    readonly property bool failed: word === "failed"

    spacing: 6

    onWordChanged: {
        // Not by the bindings, which may still hold what was before.
        if (word === "saved" || word === "failed")
            Announcer.say(explained ? autosave.label : whole(), "saved");
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: whole()

    function whole(): string {
        return autosave.label + (autosave.message !== "" ? ". " + autosave.message : "");
    }

    Item {
        width: 16
        height: parent.height

        OrvIcon {
            anchors.centerIn: parent
            visible: root.word === "saved" || root.failed
            size: 14
            name: root.failed ? "data-error" : "checkmark"
            color: root.failed ? Theme.negative : Theme.positive
        }

        OrvBusyRing {
            anchors.centerIn: parent
            running: root.word === "saving"
            color: Theme.text2
        }
    }

    Text {
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.autosave.label
        font: Theme.body
        color: root.failed ? Theme.negative : Theme.text2
        Accessible.ignored: true

        OrvTooltip {
            text: root.autosave.message
            asked: again.activeFocus && InputMode.keyboard
        }
    }

    OrvLink {
        id: again
        visible: root.failed || root.autosave.awaitsWord
        height: parent.height
        text: root.failed ? "Try again" : "Save"
        onClicked: root.autosave.save()
    }
}
