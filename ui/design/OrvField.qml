pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// One line of text with its label above and its help or error below.
FieldFrame {
    id: root

    property string placeholder: ""
    /// A search field: icon, clear button, Esc clears and then leaves.
    property bool search: false
    /// Hidden text with "Show" and "Hide".
    property bool secret: false
    property bool large: false
    property string accessibleName: label !== "" ? label : placeholder
    /// What is wrong, where that is said elsewhere.
    property string accessibleDescription: note
    property alias text: input.text
    property alias validator: input.validator
    property alias maximumLength: input.maximumLength
    property alias inputMethodHints: input.inputMethodHints
    readonly property alias input: input

    /// The person changed the text; not sent for changes from outside.
    signal edited(string text)
    signal accepted()
    /// Esc in an empty search field.
    signal escaped()

    function selectAll() {
        input.selectAll();
    }

    caret: input.activeFocus
    frameHeight: large ? Theme.controlHeightLarge : Theme.controlHeight

    OrvIcon {
        visible: root.search
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "edit-find"
        size: 14
        color: Theme.text2
        TapHandler { onTapped: input.forceActiveFocus(Qt.MouseFocusReason) }
    }

    // Not the toolkit's text field, which describes itself to a screen reader as it likes.
    TextInput {
        id: input
        anchors.fill: parent
        // Outside of what clips: a long text would run under the icon.
        anchors.leftMargin: root.search ? 30 : 0
        anchors.rightMargin: clear.visible ? clear.width + 2 : reveal.visible ? reveal.width + 4 : 0
        leftPadding: root.search ? 4 : 10
        rightPadding: 10
        focus: true
        activeFocusOnTab: true
        verticalAlignment: TextInput.AlignVCenter
        font: Theme.body
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.inkOnAccent
        selectByMouse: true
        readOnly: root.readOnly
        echoMode: root.secret && !reveal.shown ? TextInput.Password : TextInput.Normal
        clip: true
        HoverHandler { cursorShape: Qt.IBeamCursor }

        Accessible.role: Accessible.EditableText
        Accessible.description: root.accessibleDescription
        Accessible.name: root.accessibleName
        Accessible.passwordEdit: root.secret
        Accessible.readOnly: root.readOnly

        onTextEdited: root.edited(text)
        onAccepted: root.accepted()
        // One that is still held from what led here ends nothing.
        Keys.onReturnPressed: event => event.accepted = event.isAutoRepeat
        Keys.onEnterPressed: event => event.accepted = event.isAutoRepeat
        Keys.onEscapePressed: event => {
            event.accepted = root.search;
            if (!root.search) return;
            if (text === "") {
                root.escaped();
            } else {
                clear.clicked();
            }
        }

        Text {
            anchors.fill: parent
            leftPadding: input.leftPadding
            rightPadding: input.rightPadding
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

    SecretText {
        field: input
        name: root.accessibleName
        kept: root.secret
    }

    OrvButton {
        id: clear
        visible: root.search && input.text !== ""
        anchors.right: parent.right
        anchors.rightMargin: 2
        anchors.verticalCenter: parent.verticalCenter
        kind: "ghost"
        size: "small"
        iconOnly: true
        iconName: "orv-close"
        text: qsTr("Clear")
        activeFocusOnTab: false
        onClicked: {
            input.clear();
            input.forceActiveFocus();
            root.edited("");
        }
    }

    OrvLink {
        id: reveal
        property bool shown: false
        visible: root.secret
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        text: shown ? qsTr("Hide") : qsTr("Show")
        onClicked: shown = !shown
    }
}
