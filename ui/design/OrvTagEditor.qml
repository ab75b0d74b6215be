pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// A field that holds chips. Comma, Enter and paste add what is typed; Backspace in the empty field takes the last.
FieldFrame {
    id: root

    property alias tags: held.options
    /// Those that could be added.
    property alias suggestions: offered.options
    property string placeholder: ""
    property bool dismissed: false
    readonly property alias input: input
    readonly property list<choice> matches: {
        const wanted = input.text.trim().toLowerCase();
        return suggestions.filter(tag => tag.label.toLowerCase().includes(wanted)).slice(0, 6);
    }

    ChoiceList { id: held }
    ChoiceList { id: offered }

    /// What was typed or pasted, taken apart.
    signal added(var texts)
    signal removed(string key)

    function add(text: string) {
        const texts = text.split(/[,\n]/).map(part => part.trim()).filter(part => part !== "");
        input.clear();
        if (texts.length > 0) added(texts);
    }

    // The chip goes with its tag, and the caret must not go with the chip.
    function remove(key: string) {
        input.forceActiveFocus();
        removed(key);
    }

    frameHeight: Math.max(Theme.controlHeight, flow.implicitHeight + 6)
    caret: input.activeFocus

    Flow {
        id: flow
        x: 3
        y: 3
        width: parent.width - 6
        spacing: 4

        Repeater {
            model: held

            OrvChip {
                required property choice modelData

                value: modelData.label
                onRemoved: root.remove(modelData.key)
            }
        }

        TextInput {
            id: input
            width: held.count > 0 ? 160 : flow.width
            height: 24
            leftPadding: 7
            focus: true
            activeFocusOnTab: true
            verticalAlignment: TextInput.AlignVCenter
            font: Theme.body
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.inkOnAccent
            selectByMouse: true
            clip: true

            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.description: root.note

            onTextEdited: {
                root.dismissed = false;
                if (/[,\n]/.test(text)) root.add(text);
            }
            onActiveFocusChanged: {
                root.dismissed = false;
                if (!activeFocus) root.add(text);
            }
            Keys.onUpPressed: event => event.accepted = list.step(-1)
            Keys.onDownPressed: event => event.accepted = list.step(1)
            Keys.onReturnPressed: if (!list.take()) root.add(text)
            Keys.onEnterPressed: if (!list.take()) root.add(text)
            Keys.onEscapePressed: event => {
                event.accepted = list.visible;
                root.dismissed = true;
            }
            Keys.onPressed: event => {
                if (event.key !== Qt.Key_Backspace || text !== "" || held.count === 0) return;
                event.accepted = true;
                root.remove(held.keyAt(held.count - 1));
            }

            Text {
                visible: held.count === 0 && input.text === "" && input.preeditText === ""
                leftPadding: 7
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.placeholder
                font: Theme.body
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }

    SuggestionList {
        id: list
        wanted: input.activeFocus && !root.dismissed
        options: root.matches
        onChosen: key => root.add(key)
    }
}
