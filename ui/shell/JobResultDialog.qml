import QtQuick
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

        Repeater {
            model: root.job ? root.job.lines : []

            DialogText {
                required property string modelData

                text: modelData
                color: Theme.text
            }
        }
    }
}
