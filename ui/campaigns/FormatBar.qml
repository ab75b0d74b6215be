import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// What can be done to the text that is being written, and the test email.
Item {
    id: root

    required property SequenceEditor editor
    /// The field that the commands act on.
    required property EmailField field
    property bool canWrite: true
    property bool previewButton: false
    readonly property bool tight: width < 600

    signal previewRequested()

    implicitHeight: 45

    OrvDivider {
        width: parent.width
    }

    Row {
        x: 12
        height: parent.height
        spacing: 2

        Repeater {
            model: [
                { command: "bold", text: "Bold", icon: "format-text-bold", keys: "Ctrl B" },
                { command: "italic", text: "Italic", icon: "format-text-italic", keys: "Ctrl I" },
                { command: "spinText", text: "Spin text", icon: "media-playlist-shuffle", keys: "" },
                { command: "bullets", text: "Bullets", icon: "format-list-unordered", keys: "" },
                { command: "numbers", text: "Numbers", icon: "format-list-ordered", keys: "" },
                { command: "link", text: "Link", icon: "insert-link", keys: "" }
            ]

            OrvButton {
                required property var modelData

                anchors.verticalCenter: parent !== null ? parent.verticalCenter : undefined
                enabled: root.canWrite
                kind: "ghost"
                iconOnly: true
                iconName: modelData.icon
                text: modelData.text
                keys: modelData.keys
                onClicked: root.field.format(modelData.command)
            }
        }

        Item {
            width: 13
            height: parent.height

            Rectangle {
                x: 6
                y: 14
                width: 1
                height: parent.height - 28
                color: Theme.border
            }
        }

        OrvButton {
            id: variablesButton
            anchors.verticalCenter: parent.verticalCenter
            enabled: root.canWrite
            kind: "ghost"
            iconName: "code-context"
            iconOnly: root.tight
            text: "Variables"
            onClicked: variablesMenu.openAt(variablesButton, false)
        }

        OrvButton {
            anchors.verticalCenter: parent.verticalCenter
            enabled: root.canWrite
            kind: "ghost"
            iconName: "games-hint"
            iconOnly: root.tight
            text: "Auto spintax"
            hint: "Auto spintax: the AI adds {a|b} options, so every lead gets a slightly different email"
            busy: root.editor.spinning !== ""
            onClicked: {
                // Where Ctrl+Z takes the answer back.
                root.field.forceActiveFocus(Qt.OtherFocusReason);
                root.editor.spin(root.field.singleLine ? "subject" : "body");
            }
        }
    }

    Row {
        x: parent.width - width - 12
        height: parent.height
        spacing: 8

        OrvButton {
            visible: root.previewButton
            anchors.verticalCenter: parent.verticalCenter
            text: "Preview"
            iconName: "view-visible"
            onClicked: root.previewRequested()
        }

        OrvButton {
            anchors.verticalCenter: parent.verticalCenter
            enabled: root.canWrite
            text: "Send a test"
            iconName: "document-send"
            onClicked: root.editor.testEmail.show()
        }
    }

    MenuLoader {
        id: variablesMenu
        sourceComponent: OrvMenu {
            id: menu
            title: "Variables"

            Instantiator {
                model: root.editor.variables
                onObjectAdded: (index, object) => menu.insertItem(index, object)
                onObjectRemoved: (index, object) => menu.removeItem(object)

                delegate: OrvMenuItem {
                    required property emailVariable modelData

                    text: modelData.name
                    detail: modelData.group !== "" ? modelData.group : modelData.text
                    onTriggered: root.field.insertVariable(modelData.name)
                }
            }
        }
    }
}
