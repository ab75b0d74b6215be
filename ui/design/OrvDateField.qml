import QtQuick
import Orvella.Design

/// A day, typed as YYYY-MM-DD or picked from a calendar. The text is the form's, also while it is no day yet; `day` is
/// the ISO day it stands for, or empty. A shorthand, "tomorrow" or "+7", becomes its day when the field is left or with
/// Enter.
FieldFrame {
    id: root

    property string placeholder: "YYYY-MM-DD"
    /// The form's own message, which comes before the field's.
    property string problem: ""
    /// ISO days; empty where there is no limit.
    property string first: ""
    property string last: ""
    property alias text: input.text
    readonly property alias input: input
    readonly property string day: DateText.parse(input.text)

    /// The person changed the text; a day that is picked comes as one, too.
    signal edited(string text)

    function selectAll() {
        input.selectAll();
    }

    // By the input's own means: assigning to its text would end the binding that a form has on it. It says of what is put
    // into it that it was typed.
    property bool putting: false

    function put(text: string) {
        putting = true;
        input.clear();
        input.insert(0, text);
        putting = false;
    }

    function settle() {
        const meant = day === "" ? DateText.expand(input.text) : "";
        if (meant === "")
            return;
        put(meant);
        edited(meant);
    }

    function openCalendar() {
        calendar.active = true;
        (calendar.item as OrvCalendar).today = DateText.today();
        (calendar.item as OrvCalendar).openUnder();
    }

    // Half a date is no mistake while it is being typed.
    readonly property bool judged: text.trim() !== "" && !input.activeFocus
    readonly property string ownProblem: !judged ? ""
        : day === "" ? "Write the date as YYYY-MM-DD"
        : first !== "" && day < first ? "Not before " + first
        : last !== "" && day > last ? "Not after " + last : ""

    error: problem !== "" ? problem : ownProblem
    caret: input.activeFocus

    // Not the toolkit's text field, which describes itself to a screen reader as it likes.
    TextInput {
        id: input
        anchors { fill: parent; rightMargin: open.width + 2 }
        leftPadding: 10
        rightPadding: 4
        focus: true
        activeFocusOnTab: true
        verticalAlignment: TextInput.AlignVCenter
        font: Theme.body
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.inkOnAccent
        selectByMouse: true
        maximumLength: 16
        inputMethodHints: Qt.ImhDate
        clip: true
        HoverHandler { cursorShape: Qt.IBeamCursor }

        Accessible.role: Accessible.EditableText
        Accessible.description: root.note !== "" ? root.note : echo.text
        Accessible.name: root.label
        onTextEdited: if (!root.putting) root.edited(text)
        onEditingFinished: root.settle()
        Keys.onDownPressed: root.openCalendar()

        Text {
            id: echo
            anchors { right: parent.right; rightMargin: 4 }
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            visible: root.day !== "" && input.leftPadding + input.contentWidth + 8 + implicitWidth < input.width
            textFormat: Text.PlainText
            text: root.day === "" ? "" : DateText.brief(root.day)
            font: Theme.small
            color: Theme.text3
            Accessible.ignored: true
        }

        Text {
            anchors { fill: parent; leftMargin: input.leftPadding }
            verticalAlignment: Text.AlignVCenter
            visible: input.text === "" && input.preeditText === ""
            textFormat: Text.PlainText
            text: root.placeholder
            font: input.font
            color: Theme.text3
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    OrvButton {
        id: open
        anchors { right: parent.right; rightMargin: 2; verticalCenter: parent.verticalCenter }
        kind: "ghost"
        size: "small"
        iconOnly: true
        iconName: "view-calendar"
        text: "Calendar for " + root.label
        hint: "Pick from a calendar"
        // The field is one stop in the tab order; Down opens the calendar.
        activeFocusOnTab: false
        focusPolicy: Qt.NoFocus
        onClicked: root.openCalendar()
    }

    Loader {
        id: calendar
        active: false
        sourceComponent: OrvCalendar {
            parent: input
            chosen: root.day
            first: root.first
            last: root.last
            onPicked: day => {
                root.put(day);
                root.edited(day);
            }
        }
    }
}
