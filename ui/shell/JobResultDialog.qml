import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App

/// What came of a job, wherever the person is by then.
OnDemand {
    id: root

    required property Jobs jobs
    /// Slug of the workspace that is open.
    property string workspace: ""

    // The dialog goes on showing it while it closes.
    property Job job: null

    shown: jobs.shown !== null

    Connections {
        target: root.jobs

        function onShownChanged() {
            if (root.jobs.shown !== null)
                root.job = root.jobs.shown;
        }
    }

    sourceComponent: OrvDialog {
        title: root.job ? root.job.title : ""
        lead: root.job && root.job.slug !== root.workspace ? root.job.workspace : ""
        text: root.job ? root.job.text : ""
        confirmText: "Done"
        cancelText: ""
        onConfirmed: root.jobs.hide()
        onCancelled: root.jobs.hide()

        ListView {
            id: lines
            visible: count > 0
            width: parent.width
            height: Math.min(contentHeight, 320)
            clip: true
            spacing: 10
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            highlightMoveDuration: 0
            model: root.job ? root.job.lines : []
            Keys.onPressed: event => {
                const page = Math.max(1, Math.floor(count * height / contentHeight));
                event.accepted = true;
                switch (event.key) {
                case Qt.Key_Home: currentIndex = 0; break;
                case Qt.Key_End: currentIndex = count - 1; break;
                case Qt.Key_PageUp: currentIndex = Math.max(0, currentIndex - page); break;
                case Qt.Key_PageDown: currentIndex = Math.min(count - 1, currentIndex + page); break;
                default: event.accepted = false;
                }
            }
            Accessible.role: Accessible.List
            Accessible.name: root.job ? root.job.title : ""

            T.ScrollBar.vertical: OrvScrollBar {}

            delegate: DialogText {
                id: line

                required property string modelData

                width: lines.width - 12
                text: modelData
                color: Theme.text
                Accessible.focusable: true

                FocusRing {
                    visible: line.activeFocus && InputMode.keyboard
                    inset: true
                }
            }
        }
    }
}
