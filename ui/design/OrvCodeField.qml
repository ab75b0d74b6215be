pragma ComponentBehavior: Bound
import QtQuick

/// Six digits in six cells, one field to everything but the eye. Typing and pasting fill it.
FocusScope {
    id: root

    property string text: ""
    property string label: qsTr("Code")
    property string error: ""
    readonly property int length: 6

    /// `whole` when nothing is missing.
    signal edited(string text, bool whole)

    implicitWidth: 348
    implicitHeight: 44

    onTextChanged: fill(text)

    function fill(digits: string) {
        input.entered = digits;
        if (input.text !== digits)
            input.text = digits;
    }

    // A pasted code comes with spaces, dashes or its whole sentence. What is typed behind six digits begins the next
    // code: nobody sees the cursor, and the six that were refused must not go out again.
    function take(typed: string) {
        const before = input.entered;
        let digits = typed.replace(/[^0-9]/g, "");
        if (digits.length > length)
            digits = digits.startsWith(before) && before.length === length ? digits.slice(length) : digits;
        digits = digits.slice(0, length);
        fill(digits);
        if (digits !== before)
            edited(digits, digits.length === length);
    }

    TextInput {
        id: input

        property string entered: ""

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        color: "transparent"
        selectionColor: "transparent"
        cursorDelegate: Item {}
        inputMethodHints: Qt.ImhDigitsOnly
        Accessible.role: Accessible.EditableText
        Accessible.name: root.label
        Accessible.description: root.error

        onTextEdited: root.take(text)
        onCursorPositionChanged: cursorPosition = length
    }

    Row {
        anchors.fill: parent
        spacing: 8
        Repeater {
            model: root.length
            Rectangle {
                id: cell
                required property int index
                readonly property bool current: input.activeFocus && index === Math.min(input.text.length, root.length - 1)

                // Two groups of three read more easily than six.
                width: index === 2 ? cellWidth + 14 : cellWidth
                readonly property real cellWidth: (root.width - 5 * 8 - 14) / 6
                height: root.height
                color: "transparent"

                Rectangle {
                    width: cell.cellWidth
                    height: parent.height
                    radius: Theme.radiusCard
                    color: Theme.surface
                    border.width: 1
                    border.color: root.error !== "" ? Theme.negative : Theme.borderField
                    FocusRing { visible: cell.current; innerRadius: Theme.radiusCard }
                    Text {
                        anchors.centerIn: parent
                        textFormat: Text.PlainText
                        text: input.text.charAt(cell.index)
                        font: Theme.codeDigit
                        color: Theme.text
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
