import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// The long work of all workspaces: how far each is, the way to stop it, and what came of it.
T.Popup {
    id: root

    required property Jobs jobs

    width: 360
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    padding: 16
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    background: OrvFloat {}

    readonly property FocusReturn focusReturn: FocusReturn {}

    onAboutToShow: {
        focusReturn.remember(parent);
        contentItem.forceActiveFocus(Qt.PopupFocusReason);
    }
    onAboutToHide: focusReturn.giveBack()

    Connections {
        target: root.jobs

        function onCountChanged() {
            if (root.jobs.count === 0)
                root.close();
        }
    }

    contentItem: FocusScope {
        implicitHeight: column.implicitHeight

        Accessible.role: Accessible.Pane
        Accessible.name: "Tasks"

        Column {
            id: column
            width: parent.width
            spacing: 12

            Item {
                width: parent.width
                height: 26

                Text {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: "Tasks"
                    font: Theme.bodyBold
                    color: Theme.text
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                OrvLink {
                    anchors.right: parent.right
                    visible: root.jobs.count > root.jobs.running
                    focus: true
                    text: "Clear finished"
                    onClicked: root.jobs.clearEnded()
                }
            }

            ListView {
                id: list
                width: parent.width
                height: Math.min(contentHeight, 320)
                boundsBehavior: Flickable.StopAtBounds
                interactive: contentHeight > height
                clip: interactive
                spacing: 12
                model: root.jobs

                RowFocus { target: list }

                delegate: JobRow {
                    required property Job job

                    width: ListView.view.width
                    name: job.name
                    place: job.workspace
                    running: job.running
                    failed: job.failed
                    fact: job.running ? job.stage : job.failed && job.text !== "" ? job.text : job.title
                    progress: job.progress
                    hasMore: !job.running && job.title !== ""
                    onStopped: job.stop()
                    onOpened: {
                        root.close();
                        root.jobs.show(job);
                    }
                }
            }
        }
    }
}
