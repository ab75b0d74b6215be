pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A whole number with minus and plus at its sides; the arrow keys step as well.
///
/// Bind `value` where only numbers count, and listen to `edited`; a number beyond the bounds counts as the nearest within.
/// A form that also keeps what is not a number yet, so as to refuse it when it is saved, sets `keepsText`, binds `text`
/// and listens to `typed`.
FieldFrame {
    id: root

    property int value: from
    property int from: 0
    property int to: 2147483647
    property int step: 1
    /// Shown as the field's error while its text is no number from `from` to `to`.
    property string rangeError: ""
    property string placeholder: ""
    /// What is counted, after the number.
    property string suffix: ""
    /// The field may be empty, which is no number and no error.
    property bool clearable: false
    property bool keepsText: false
    property string accessibleName: label
    /// What the buttons at its sides do.
    property string lessText: qsTr("Less, %1").arg(accessibleName)
    property string moreText: qsTr("More, %1").arg(accessibleName)
    property alias text: input.text
    readonly property alias input: input

    /// The person chose another number. A value from outside is shown and never sent back.
    signal edited(int value)
    /// With `keepsText`: the person changed the text, whatever it is now.
    signal typed(string text)

    /// The number typed, or undefined.
    readonly property var number: NumberText.parse(input.text, from, to)
    // The input says of what is put into it that it was typed.
    property bool putting: false
    readonly property bool valid: number !== undefined || (clearable && input.text.trim() === "")

    /// What the text that is being typed counts as: beyond the bounds it is not what stands there.
    property var meant: undefined

    // By the input's own means: assigning to its text would end the binding that a form has on it.
    function put(text: string) {
        putting = true;
        input.clear();
        input.insert(0, text);
        putting = false;
    }

    function show() {
        if (keepsText || number === value || meant === value) return;
        meant = undefined;
        put(value);
    }

    /// The number within the bounds that the text means, or undefined.
    function nearest(text: string): var {
        const any = NumberText.parse(text, -2147483648, 2147483647);
        return any === undefined ? undefined : Math.max(from, Math.min(to, any));
    }

    function take(text: string) {
        if (keepsText) {
            typed(text);
            return;
        }
        meant = nearest(text);
        if (meant !== undefined && meant !== value) edited(meant);
    }

    function stepBy(by: int) {
        const near = NumberText.parse(input.text, -2147483648, 2147483647);
        const start = near ?? (keepsText ? from - by : value);
        const next = Math.max(from, Math.min(to, start + by));
        if (next === near) return;
        put(next);
        take(input.text);
    }

    implicitWidth: 120
    caret: input.activeFocus
    error: valid ? "" : rangeError

    Component.onCompleted: show()
    onValueChanged: show()

    component StepButton: T.AbstractButton {
        id: button

        required property int by
        required property string iconName

        width: 28
        height: parent.height
        enabled: root.enabled && (root.number === undefined || (by < 0 ? root.number > root.from : root.number < root.to))
        opacity: enabled ? 1 : 0.6
        // The field is one stop in the tab order; its arrow keys do what these do.
        focusPolicy: Qt.NoFocus
        autoRepeat: true
        Accessible.role: Accessible.Button
        Accessible.name: text
        Accessible.onPressAction: if (enabled) clicked()
        onClicked: root.stepBy(by)

        background: Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: Theme.radiusControl - 1
            color: button.down ? Theme.pressed : button.hovered && button.enabled ? Theme.hover : "transparent"
        }
        contentItem: Item {
            OrvIcon {
                anchors.centerIn: parent
                name: button.iconName
                size: 12
                color: Theme.text2
            }
        }
    }

    StepButton {
        id: less
        by: -root.step
        iconName: "list-remove"
        text: root.lessText
    }

    // Not the toolkit's text field, which calls itself one whatever it is given.
    TextInput {
        id: input

        anchors.fill: parent
        anchors.leftMargin: less.width
        anchors.rightMargin: more.width + (unit.visible ? unit.width : 0)
        focus: true
        activeFocusOnTab: true
        horizontalAlignment: root.suffix === "" ? TextInput.AlignHCenter : TextInput.AlignRight
        verticalAlignment: TextInput.AlignVCenter
        font: Theme.body
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.inkOnAccent
        selectByMouse: true
        inputMethodHints: Qt.ImhDigitsOnly
        clip: true
        HoverHandler { cursorShape: Qt.IBeamCursor }

        Accessible.role: Accessible.SpinBox
        Accessible.name: root.accessibleName
        Accessible.description: root.note
        Accessible.editable: true
        Accessible.onIncreaseAction: root.stepBy(root.step)
        Accessible.onDecreaseAction: root.stepBy(-root.step)
        Keys.onUpPressed: root.stepBy(root.step)
        Keys.onDownPressed: root.stepBy(-root.step)
        onTextEdited: if (!root.putting) root.take(text)
        onEditingFinished: {
            root.meant = undefined;
            if (!root.keepsText && !(root.clearable && text.trim() === "")) root.put(root.value);
        }

        Text {
            anchors.fill: parent
            visible: input.text === "" && input.preeditText === ""
            horizontalAlignment: input.horizontalAlignment
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.placeholder
            font: input.font
            color: Theme.text3
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    Text {
        id: unit

        visible: root.suffix !== ""
        anchors.right: more.left
        width: implicitWidth
        height: parent.height
        leftPadding: 4
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.suffix
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    StepButton {
        id: more
        anchors.right: parent.right
        by: root.step
        iconName: "list-add"
        text: root.moreText
    }
}
