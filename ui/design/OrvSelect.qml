import QtQuick
import QtQml
import Orvella.Design

/// One of several values. Looks like a button, opens a menu of the values; letters typed on it choose at once.
FocusScope {
    id: root

    property string label: ""
    property alias options: choices.options
    property alias current: choices.current
    property string placeholder: "Choose…"
    property string hint: ""
    /// An icon before the value; its room is kept where others of a column have one.
    property string iconName: ""
    property bool keepsIconRoom: iconName !== ""
    property color iconColor: Theme.text2
    property color valueColor: Theme.text
    /// The choices are times of day, which "9:30", "930" and "9" name as well.
    property bool times: false

    readonly property alias currentIndex: choices.currentIndex
    readonly property string valueText: currentIndex >= 0 ? choices.currentLabel : placeholder

    signal chosen(string key)

    implicitWidth: 208
    implicitHeight: (label !== "" ? 22 : 0) + Theme.controlHeight

    TypeAhead {
        id: typeAhead
    }

    function jump(letter: string) {
        typeAhead.add(letter);
        const key = keyNamed(typeAhead.typed);
        if (key !== "" && key !== current)
            chosen(key);
    }

    /// It leads to a choice or, by a slip, out of the word that led to one: none of the page's keys.
    function isForChoice(text: string, modifiers: int): bool {
        if (!typeAhead.takes(text, modifiers))
            return false;
        const isLetter = text.toLowerCase() !== text.toUpperCase();
        if (isLetter && typeAhead.typed !== "")
            return true;
        return keyNamed(typeAhead.typed + text.toLowerCase()) !== "";
    }

    function keyNamed(typed: string): string {
        return times ? choices.timeNamed(typed) : choices.startingWith(typeAhead.comparedWith(typed));
    }

    ChoiceList {
        id: choices
    }

    function open() {
        menu.active = true;
        menu.popup.openOn(button, false, currentIndex);
    }

    Text {
        visible: root.label !== ""
        textFormat: Text.PlainText
        text: root.label
        font: Theme.smallStrong
        color: Theme.text2
        Accessible.ignored: true
    }

    Pressable {
        id: button
        y: root.label !== "" ? 22 : 0
        width: root.width
        height: Theme.controlHeight
        focus: true
        activeFocusOnTab: true
        opacity: enabled ? 1 : 0.6

        Accessible.role: Accessible.ComboBox
        Accessible.name: root.label === "" ? root.valueText : root.label + ", " + root.valueText
        Accessible.description: root.hint
        Accessible.focusable: true
        Keys.onShortcutOverride: event => event.accepted = root.isForChoice(event.text, event.modifiers)
        Keys.onPressed: event => {
            event.accepted = true;
            // A key that chose in the menu and is still held must not open it again.
            if ([Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space].includes(event.key) && event.isAutoRepeat)
                return;
            if ([Qt.Key_Return, Qt.Key_Enter, Qt.Key_Down, Qt.Key_Up].includes(event.key)
                    || event.key === Qt.Key_Space && typeAhead.typed === "")
                root.open();
            else if (typeAhead.takes(event.text, event.modifiers))
                root.jump(event.text);
            else
                event.accepted = false;
        }
        onClicked: {
            forceActiveFocus(Qt.MouseFocusReason);
            root.open();
        }

        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusControl
            color: button.down ? Theme.pressed : button.hovered ? Theme.hover : Theme.raised
            border { width: 1; color: Theme.borderField }
            FocusRing { visible: button.activeFocus && InputMode.keyboard }
        }

        OrvIcon {
            visible: root.iconName !== ""
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            name: root.iconName
            size: 14
            color: root.iconColor
        }

        Text {
            x: root.keepsIconRoom ? 32 : 12
            width: parent.width - x - 32
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.valueText
            font: Theme.body
            color: root.currentIndex >= 0 ? root.valueColor : Theme.text3
            Accessible.ignored: true
        }

        OrvIcon {
            anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
            name: "go-down"
            size: 12
            color: Theme.text2
        }

        OrvTooltip {
            text: root.hint
        }
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: root.label
            width: Math.max(root.width, 200)
            rows: 10

            function named(): int {
                return root.times ? choices.indexOf(choices.timeNamed(list.typeAhead.typed)) : -1;
            }

            Instantiator {
                model: choices

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    detail: modelData.detail
                    tickable: true
                    ticked: modelData.key === root.current
                    onTriggered: root.chosen(modelData.key)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }
        }
    }
}
