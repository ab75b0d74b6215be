import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Campaigns

/// The emails of the sequence, one under the other, with the waits between them.
FocusScope {
    id: root

    required property SequenceEditor editor
    property bool canWrite: true

    /// The person wants to write in the email that is shown.
    signal writeRequested()

    readonly property bool ringed: list.activeFocus && InputMode.keyboard

    function insert(place: int) {
        editor.insertStep(place);
        root.writeRequested();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }

    ListView {
        id: list

        // The ring around a card reaches beyond it.
        readonly property real ringRoom: 4

        x: 16 - ringRoom
        width: parent.width - 2 * x
        height: parent.height - stop.height - add.height - 12
        model: root.editor.steps
        activeFocusOnTab: root.editor.stepCount > 0
        keyNavigationEnabled: false
        // A current entry would take the focus, and a screen reader knows nothing of it.
        currentIndex: -1
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true
        cacheBuffer: 0

        T.ScrollBar.vertical: OrvScrollBar {
            parent: root
            x: root.width - width
            y: list.y
            height: list.height
        }

        Accessible.role: Accessible.List
        Accessible.name: "Emails"
        Accessible.description: root.editor.title
        Keys.onUpPressed: root.editor.selectPlace(root.editor.place - 1)
        Keys.onDownPressed: root.editor.selectPlace(root.editor.place + 1)
        Keys.onReturnPressed: root.writeRequested()
        Keys.onEnterPressed: root.writeRequested()
        Keys.onDeletePressed: if (root.canWrite) root.editor.removeStep(root.editor.stepKey)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Insert && root.canWrite) {
                root.insert(root.editor.place + 1);
                event.accepted = true;
            } else if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
                root.editor.selectPlace(event.key === Qt.Key_Home ? 0 : root.editor.stepCount - 1);
                event.accepted = true;
            }
        }

        readonly property int place: root.editor.place
        onPlaceChanged: place > 0 ? positionViewAtIndex(place, ListView.Contain) : positionViewAtBeginning()

        header: TimelineNote {
            x: list.ringRoom
            width: list.width - 2 * x
            height: 56
            topMargin: 14
            iconName: "media-playback-start"
            text: "Starts when a lead is added to the campaign"
        }

        delegate: Column {
            id: entry

            required property var model
            required property int index

            x: list.ringRoom
            width: list.width - 2 * x
            bottomPadding: list.ringRoom

            StepGap {
                visible: entry.index > 0
                width: parent.width
                height: visible ? 34 - lineAbove : 0
                lineAbove: list.ringRoom
                text: entry.model.wait
                canWrite: root.canWrite
                onInsertRequested: root.insert(entry.index)
            }

            StepCard {
                readonly property string date: root.editor.days.dates[entry.index] ?? ""
                // A row that is about to go has no texts any more.
                readonly property string sends: entry.model.when ?? ""

                width: parent.width
                title: entry.model.title
                when: entry.index > 0 && date !== "" ? sends + " · " + date : sends
                subject: entry.model.subject
                subjectIsNote: entry.model.subjectIsNote
                letters: entry.model.letters
                sent: entry.model.sent
                replied: entry.model.replied
                current: entry.model.current
                ringed: root.ringed && current
                onClicked: {
                    list.forceActiveFocus(Qt.MouseFocusReason);
                    root.editor.select(entry.model.id);
                }
            }
        }
    }

    Item {
        id: add
        visible: root.canWrite
        x: 16
        // Under the last email, and in reach when there are more of them than fit.
        y: Math.min(list.contentHeight, list.height)
        width: parent.width - 2 * x
        height: root.canWrite ? 40 : 0

        Rectangle {
            visible: root.editor.stepCount > 0
            x: 10
            y: -list.ringRoom
            width: 1
            height: 14
            color: Theme.borderField
        }

        OrvButton {
            y: parent.height - height
            width: parent.width
            iconName: "list-add"
            text: "Add email"
            keys: "Ctrl Enter"
            onClicked: root.insert(root.editor.stepCount)
        }
    }

    Item {
        id: stop
        y: parent.height - height
        width: parent.width
        height: 56

        TimelineNote {
            x: 16
            width: parent.width - 32
            iconName: "media-playback-stop"
            text: "Stops when they reply, bounce or unsubscribe"
        }
    }

    Rectangle {
        x: parent.width - 1
        width: 1
        height: parent.height
        color: Theme.border
    }
}
