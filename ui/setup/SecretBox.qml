import QtQuick
import Orvella.Design
import Orvella.Setup

/// A secret that the service keeps: that it is stored, a way to replace it or to take it away, and the field for a new one.
Item {
    id: root

    required property SecretField secret
    property string label: ""
    property string help: ""
    /// What is typed shows as dots.
    property bool hidden: true
    /// What the service gives back of it, in place of dots.
    property string shownText: ""

    // What was pressed goes with it.
    function keep() {
        secret.keep();
        replaceLink.forceActiveFocus(Qt.OtherFocusReason);
    }

    implicitHeight: secret.open ? field.height + (undo.visible ? undo.height : 0) : kept.height

    OrvField {
        id: field
        visible: root.secret.open
        width: root.width
        label: root.label
        help: root.help
        secret: root.hidden
        text: root.secret.text
        // The keyboard is led to what has an error.
        error: root.secret.open ? root.secret.problem : ""
        onEdited: text => root.secret.text = text
    }

    OrvLink {
        id: undo
        visible: root.secret.open && root.secret.stored
        y: field.height
        text: "Keep the stored one"
        onClicked: root.keep()
    }

    FieldFrame {
        id: kept
        visible: !root.secret.open
        width: root.width
        label: root.label
        help: root.secret.clearing ? "It goes when you save." : root.help
        error: root.secret.clearing ? "" : root.secret.problem

        Text {
            x: 10
            width: actions.x - x - 8
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            text: root.secret.clearing ? "" : root.shownText !== "" ? root.shownText : "••••••••••••"
            font: Theme.body
            color: Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: root.label + (root.secret.clearing ? ", removed when you save" : ", stored")
        }

        Row {
            id: actions
            x: parent.width - width - 10
            anchors.verticalCenter: parent.verticalCenter
            spacing: 10

            Text {
                visible: !root.secret.clearing
                height: 26
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: "Stored"
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }

            OrvLink {
                id: replaceLink
                visible: !root.secret.clearing
                text: "Replace"
                Accessible.name: "Replace " + root.label
                onClicked: {
                    root.secret.replace();
                    field.forceActiveFocus(Qt.OtherFocusReason);
                }
            }

            OrvLink {
                visible: !root.secret.clearing
                text: "Remove"
                Accessible.name: "Remove " + root.label
                onClicked: {
                    root.secret.clear();
                    keepLink.forceActiveFocus(Qt.OtherFocusReason);
                }
            }

            OrvLink {
                id: keepLink
                visible: root.secret.clearing
                text: "Keep"
                Accessible.name: "Keep " + root.label
                onClicked: root.keep()
            }
        }
    }
}
