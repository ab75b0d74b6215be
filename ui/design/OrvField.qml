pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// One line of text with its label above and its help or error below.
FocusScope {
    id: root

    property string label: ""
    property string placeholder: ""
    property string help: ""
    property string error: ""
    /// A search field: icon, clear button, Esc clears and then leaves.
    property bool search: false
    /// Hidden text with "Show" and "Hide".
    property bool secret: false
    property bool large: false
    property bool readOnly: false
    property string accessibleName: label !== "" ? label : placeholder
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

    implicitWidth: 208
    implicitHeight: (label !== "" ? 22 : 0) + frame.height + (note.visible ? note.implicitHeight + 6 : 0)

    Text {
        visible: root.label !== ""
        textFormat: Text.PlainText
        text: root.label
        font: Theme.smallStrong
        color: Theme.text2
        // This version of Qt keeps a password field's name to itself along with its text, so the label speaks for it.
        Accessible.ignored: !root.secret
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Rectangle {
        id: frame
        y: root.label !== "" ? 22 : 0
        width: parent.width
        height: root.large ? Theme.controlHeightLarge : Theme.controlHeight
        radius: Theme.radiusControl
        color: Theme.surface
        opacity: root.enabled ? 1 : 0.6
        border.width: 1
        border.color: root.error !== "" ? Theme.negative : input.activeFocus ? Theme.focus : Theme.borderField

        Rectangle {
            visible: input.activeFocus
            anchors.fill: parent
            anchors.margins: -2
            radius: parent.radius + 2
            color: "transparent"
            border.width: 2
            border.color: Theme.focusHalo
        }

        OrvIcon {
            visible: root.search
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            name: "edit-find"
            size: 14
            color: Theme.text2
        }

        T.TextField {
            id: input
            anchors.fill: parent
            anchors.rightMargin: clear.visible ? clear.width + 2 : reveal.visible ? reveal.width + 4 : 0
            leftPadding: root.search ? 34 : 10
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

            Accessible.role: Accessible.EditableText
            Accessible.name: root.accessibleName
            Accessible.description: root.error !== "" ? root.error : root.help
            Accessible.passwordEdit: root.secret

            onTextEdited: root.edited(text)
            onAccepted: root.accepted()
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
                root.edited("");
                input.forceActiveFocus();
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

    Row {
        id: note
        readonly property bool failed: root.error !== ""
        visible: failed || root.help !== ""
        y: frame.y + frame.height + 6
        width: parent.width
        spacing: 8
        OrvIcon {
            visible: note.failed
            name: "data-error"
            size: 14
            color: Theme.negative
        }
        Text {
            width: parent.width - (note.failed ? 22 : 0)
            textFormat: Text.PlainText
            text: note.failed ? root.error : root.help
            font: Theme.small
            color: note.failed ? Theme.negative : Theme.text3
            wrapMode: Text.Wrap
            Accessible.role: note.failed ? Accessible.AlertMessage : Accessible.StaticText
            Accessible.name: text
        }
    }
}
