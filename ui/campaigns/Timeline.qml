pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App

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

    Flickable {
        id: scroll

        anchors { fill: parent; bottomMargin: stop.height }
        contentHeight: column.height + 24
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true

        T.ScrollBar.vertical: OrvScrollBar {}

        function reveal(item: Item) {
            const top = item.mapToItem(contentItem, 0, 0).y;
            if (top < contentY + 8)
                contentY = Math.max(0, top - 8);
            else if (top + item.height + 8 > contentY + height)
                contentY = Math.min(contentHeight - height, top + item.height + 8 - height);
        }

        Column {
            id: column
            x: 16
            y: 14
            width: scroll.width - 32

            Note {
                iconName: "media-playback-start"
                text: "Starts when a lead is added to the campaign"
            }

            FocusScope {
                id: list
                width: parent.width
                height: cards.height
                activeFocusOnTab: root.editor.stepCount > 0

                Accessible.role: Accessible.List
                Accessible.name: "Emails"
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

                Column {
                    id: cards
                    width: parent.width

                    Repeater {
                        model: root.editor.steps

                        Column {
                            id: entry

                            required property var model
                            required property int index

                            width: cards.width

                            Gap {
                                visible: entry.index > 0
                                height: visible ? 34 : 0
                                text: entry.model.wait
                                place: entry.index
                            }

                            StepCard {
                                id: card
                                width: parent.width
                                title: entry.model.title
                                when: entry.model.when
                                subject: entry.model.subject
                                subjectIsNote: entry.model.subjectIsNote
                                letters: entry.model.letters
                                sent: entry.model.sent
                                replied: entry.model.replied
                                current: entry.model.current
                                ringed: root.ringed && current
                                onCurrentChanged: if (current) scroll.reveal(card)
                                onClicked: {
                                    root.editor.select(entry.model.id);
                                    list.forceActiveFocus(Qt.MouseFocusReason);
                                }
                            }
                        }
                    }
                }
            }

            Item {
                visible: root.canWrite
                width: parent.width
                height: root.editor.stepCount > 0 ? 44 : 40

                Rectangle {
                    visible: root.editor.stepCount > 0
                    x: 10
                    width: 1
                    height: 14
                    color: Theme.borderField
                }

                OrvButton {
                    y: parent.height - height
                    width: parent.width
                    iconName: "list-add"
                    text: "Add email"
                    onClicked: root.insert(root.editor.stepCount)
                }
            }
        }
    }

    Item {
        id: stop
        y: parent.height - height
        width: parent.width
        height: 56

        Note {
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

    component Note: Item {
        id: note

        property string iconName: ""
        property string text: ""

        width: parent.width
        height: 42

        OrvIcon {
            x: 4
            y: 8
            size: 12
            name: note.iconName
            color: Theme.text2
        }

        Text {
            x: 25
            width: parent.width - x
            textFormat: Text.PlainText
            text: note.text
            font: Theme.small
            color: Theme.text2
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    component Gap: Item {
        id: gap

        property string text: ""
        property int place: 0

        width: parent.width

        Rectangle {
            x: 10
            width: 1
            height: parent.height
            color: Theme.borderField
        }

        OrvIcon {
            x: 28
            anchors.verticalCenter: parent.verticalCenter
            size: 12
            name: "chronometer"
            color: Theme.text3
        }

        Text {
            x: 47
            width: parent.width - x - 30
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: gap.text
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        HoverHandler {
            id: hover
        }

        OrvButton {
            visible: root.canWrite && (hover.hovered || hovered)
            x: parent.width - width
            anchors.verticalCenter: parent.verticalCenter
            kind: "ghost"
            size: "small"
            iconOnly: true
            iconName: "list-add"
            focusPolicy: Qt.NoFocus
            text: "Insert an email here"
            onClicked: root.insert(gap.place)
        }
    }
}
