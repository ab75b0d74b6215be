import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The sequence of a campaign: its emails, the one being written, and how that reads for a lead.
FocusScope {
    id: root

    required property SequenceEditor editor
    property bool canWrite: true

    readonly property bool wide: width >= 1000
    /// The window has no room for the emails beside the one that is written; they are a drawer.
    readonly property bool narrow: Window.width > 0 && Window.width < 1024
    readonly property real previewWidth: width >= 1500 ? 400 : 316

    function write() {
        writing.startWriting();
    }

    /// To the email above or below, and on in its text.
    function step(by: int) {
        const writes = writing.activeFocus;
        editor.selectPlace(editor.place + by);
        if (writes)
            write();
    }

    Component.onCompleted: {
        editor.preview.wantVariables();
        editor.writingAsked.connect(write);
    }
    Component.onDestruction: {
        editor.writingAsked.disconnect(write);
        // Nobody who goes elsewhere has to wait to be sure.
        editor.autosave.save(true);
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: root.canWrite
        onActivated: root.editor.writeNew()
    }

    Shortcut {
        sequence: "Alt+Up"
        onActivated: root.step(-1)
    }

    Shortcut {
        sequence: "Alt+Down"
        onActivated: root.step(1)
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.canWrite
        onActivated: root.editor.autosave.save()
    }

    DaysStrip {
        id: days
        width: root.width
        height: visible ? implicitHeight : 0
        visible: root.editor.stepCount > 0
        headWidth: root.wide ? timeline.width : 160
        editor: root.editor
        canWrite: root.canWrite
        onWriteRequested: writing.startWriting()
    }

    Loader {
        id: timeline
        y: days.height
        width: root.narrow ? 48 : 264
        height: parent.height - y
        sourceComponent: root.narrow ? folded : emails
    }

    Component {
        id: emails

        Timeline {
            editor: root.editor
            canWrite: root.canWrite
            onWriteRequested: {
                emailsDrawer.shown = false;
                writing.startWriting();
            }
        }
    }

    Component {
        id: folded

        Rectangle {
            color: Theme.bg

            OrvButton {
                x: 9
                y: 12
                kind: "ghost"
                iconOnly: true
                iconName: "sidebar-expand-left"
                text: "Emails"
                onClicked: emailsDrawer.shown = true
            }
        }
    }

    OnDemand {
        id: emailsDrawer

        onShownChanged: follow()

        sourceComponent: OrvDrawer {
            title: "Emails"
            onClosed: emailsDrawer.shown = false

            Loader {
                anchors.fill: parent
                focus: true
                sourceComponent: emails
            }
        }
    }

    OrvNotice {
        id: unsaved
        visible: text !== ""
        x: timeline.width + 16
        y: days.height + 12
        width: writing.width - 32
        tone: "negative"
        text: root.editor.autosave.failure
    }

    RestoredNotice {
        id: restored
        x: unsaved.x
        y: unsaved.visible ? unsaved.y + unsaved.height + 8 : unsaved.y
        width: unsaved.width
        recovery: root.editor.recovery
    }

    StepEditor {
        id: writing
        x: timeline.width
        y: restored.visible ? restored.y + restored.height : unsaved.visible ? unsaved.y + unsaved.height : days.height
        width: root.width - x - (root.wide ? root.previewWidth : 0)
        height: parent.height - y
        focus: true
        visible: root.editor.stepCount > 0
        editor: root.editor
        canWrite: root.canWrite
        previewButton: !root.wide
        onPreviewRequested: drawer.shown = true
    }

    OrvEmpty {
        x: writing.x
        y: writing.y
        width: writing.width
        height: writing.height
        visible: root.editor.stepCount === 0
        iconName: "mail-message"
        title: "No emails yet"
        text: "A sequence is one email or more. The first goes out when a lead is added, the others when they don’t reply."
        actionText: root.canWrite ? "Write the first email" : ""
        onActionRequested: {
            root.editor.insertStep(0);
            writing.startWriting();
        }
    }

    Loader {
        x: root.width - width
        y: days.height
        width: root.previewWidth
        height: parent.height - y
        active: root.wide
        sourceComponent: PreviewPane {
            editor: root.editor

            Rectangle {
                width: 1
                height: parent.height
                color: Theme.border
            }
        }
    }

    OnDemand {
        id: drawer

        onShownChanged: follow()

        sourceComponent: OrvDrawer {
            title: "Preview"
            onClosed: drawer.shown = false

            PreviewPane {
                anchors.fill: parent
                bare: true
                focus: true
                editor: root.editor
            }
        }
    }

    TestEmailDialog {
        form: root.editor.testEmail
    }
}
