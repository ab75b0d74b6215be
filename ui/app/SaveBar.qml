pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// Stands at the foot of a form while something in it is unsaved.
Item {
    id: root

    property bool shown: false
    /// What its own two buttons save and discard is changed; false where others stand beside them for what is.
    property bool changed: true
    property string saveText: "Save"
    property bool saving: false
    property bool canSave: false
    property bool hasErrors: false
    /// Of the form; the bar leads to those that are ticked, which have something unsaved.
    property alias sections: choices.options
    default property alias others: extra.data

    signal saveRequested()
    signal discardRequested()
    signal sectionRequested(string key)

    visible: shown
    height: shown ? 56 : 0

    ChoiceList {
        id: choices
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }

    OrvDivider {
        width: parent.width
    }

    Item {
        x: Theme.pageSide
        width: Math.min(640, parent.width - 2 * x)
        height: parent.height

        Row {
            id: where

            readonly property list<choice> unsaved: [...choices.options].filter(section => section.ticked)
            readonly property int most: extra.width > 0 ? 2 : 4

            width: buttons.x - 12
            height: parent.height
            spacing: 6
            clip: true

            Text {
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.saving ? "Saving…" : root.hasErrors ? "Some fields need another look"
                    : where.unsaved.length > 0 ? "Unsaved changes in" : "Unsaved changes"
                font: Theme.body
                color: root.hasErrors ? Theme.negative : Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text

                readonly property string said: root.shown ? text : ""
                onSaidChanged: {
                    if (said !== "")
                        Announcer.say(said, "saved");
                }
            }

            Repeater {
                model: root.saving || root.hasErrors ? [] : [...where.unsaved].slice(0, where.most)

                OrvLink {
                    required property choice modelData

                    // One that goes has lost its row by then.
                    anchors.verticalCenter: parent?.verticalCenter
                    text: modelData.label
                    Accessible.name: "Go to " + text
                    onClicked: root.sectionRequested(modelData.key)
                }
            }

            OrvLink {
                visible: !root.saving && !root.hasErrors && where.unsaved.length > where.most
                anchors.verticalCenter: parent.verticalCenter
                text: "and " + (where.unsaved.length - where.most) + " more"
                onClicked: root.sectionRequested(where.unsaved[where.most].key)
            }
        }

        Row {
            id: buttons
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            spacing: 8

            Row {
                id: extra
                spacing: 8
            }

            OrvButton {
                visible: root.changed
                text: "Discard"
                enabled: !root.saving
                onClicked: root.discardRequested()
            }

            OrvButton {
                visible: root.changed
                kind: "primary"
                text: root.saveText
                busy: root.saving
                enabled: root.canSave || root.saving
                onClicked: root.saveRequested()
            }
        }
    }
}
