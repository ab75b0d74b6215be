import QtQuick
import Orvella.Design

/// A text to be pasted elsewhere, with its button.
Column {
    id: root

    property string label: ""
    property string text: ""
    /// The button says that it was copied.
    property bool copied: false

    signal copyRequested()

    spacing: 6

    Text {
        textFormat: Text.PlainText
        text: root.label
        font: Theme.smallStrong
        color: Theme.text2
        Accessible.ignored: true
    }

    Rectangle {
        width: root.width
        height: Theme.controlHeight
        radius: Theme.radiusControl
        color: Theme.hover
        border { width: 1; color: Theme.border }

        TextInput {
            x: 10
            width: button.x - 14
            height: parent.height
            verticalAlignment: TextInput.AlignVCenter
            readOnly: true
            selectByMouse: true
            activeFocusOnTab: true
            clip: true
            text: root.text
            // A long one shows how it begins.
            onTextChanged: cursorPosition = 0
            font: Theme.body
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.inkOnAccent
            Accessible.role: Accessible.EditableText
            Accessible.readOnly: true
            Accessible.name: root.label
        }

        OrvButton {
            id: button
            anchors { right: parent.right; rightMargin: 2; verticalCenter: parent.verticalCenter }
            kind: "ghost"
            size: "small"
            iconName: root.copied ? "checkmark" : "edit-copy"
            text: root.copied ? "Copied" : "Copy"
            hint: "Copy " + root.label
            onClicked: root.copyRequested()
        }
    }
}
