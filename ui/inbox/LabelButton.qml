import QtQuick
import QtQml
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Inbox

/// The conversation's label, and the menu of those that it can have.
T.AbstractButton {
    id: root

    required property InboxStore store
    required property Conversation conversation
    readonly property bool labelled: conversation.label !== ""

    function open() {
        menu.openAt(root, true);
    }

    implicitWidth: Math.min(200, badge.x + (labelled ? badge.implicitWidth : none.implicitWidth) + 34)
    implicitHeight: Theme.controlHeight
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.6

    Accessible.role: Accessible.ComboBox
    Accessible.name: "Label, " + (labelled ? conversation.labelTitle : none.text)
    Accessible.description: "L"
    Accessible.onPressAction: if (enabled) open()
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()
    Keys.onDownPressed: open()
    onClicked: open()

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.down ? Theme.pressed : root.hovered ? Theme.hover : Theme.raised
        border { width: 1; color: Theme.borderField }
        FocusRing { visible: root.activeFocus && InputMode.keyboard }
    }

    contentItem: Item {
        OrvBadge {
            id: badge
            visible: root.labelled
            x: 10
            y: (parent.height - height) / 2
            width: Math.min(implicitWidth, parent.width - x - 34)
            text: root.conversation.labelTitle
            tone: root.conversation.labelTone !== "" ? root.conversation.labelTone : "neutral"
        }

        Text {
            id: none
            visible: !root.labelled
            x: 10
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "No status yet"
            font: Theme.body
            color: Theme.text2
            Accessible.ignored: true
        }

        OrvIcon {
            anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
            name: "go-down"
            size: 12
            color: Theme.text3
        }
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Label"

            Instantiator {
                model: ChoiceList {
                    options: root.store.threads.labelsToSet
                }

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    tickable: true
                    ticked: modelData.key === root.conversation.label
                    onTriggered: root.store.setLabel(modelData.key)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }

            OrvMenuSeparator {
                visible: root.labelled
            }

            OrvMenuItem {
                visible: root.labelled
                text: "Clear label"
                iconName: "edit-undo"
                onTriggered: root.store.setLabel("")
            }
        }
    }
}
