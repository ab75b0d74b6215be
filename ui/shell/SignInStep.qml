import QtQuick
import Orvella.Design
import Orvella.Shell

/// One step of signing in: its field, the one error line, its verb, and the ways around it.
FocusScope {
    id: root

    required property SignInModel model
    property string submitText: ""
    /// What the person can do instead; empty for nothing.
    property string alternative: ""
    property bool alternativeEnabled: !model.busy
    default property alias fields: fieldColumn.data

    signal submitted()
    signal alternativeChosen()

    implicitHeight: column.height

    Column {
        id: column
        width: parent.width

        FocusScope {
            width: parent.width
            height: fieldColumn.height
            focus: true

            Column {
                id: fieldColumn
                width: parent.width
            }
        }

        ErrorLine {
            width: parent.width
            text: root.model.error
        }

        Text {
            visible: text !== "" && root.model.error === ""
            width: parent.width
            topPadding: 8
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.model.notice
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }

        Item { width: 1; height: 16 }

        OrvButton {
            width: parent.width
            kind: "primary"
            size: "large"
            text: root.submitText
            busy: root.model.busy
            onClicked: root.submitted()
        }

        Item {
            visible: root.alternative !== "" || differentEmail.visible
            width: parent.width
            height: 34

            OrvLink {
                id: differentEmail
                y: 8
                visible: root.model.step !== "email"
                text: "Use a different email"
                onClicked: root.model.useDifferentEmail()
            }

            OrvLink {
                anchors.right: parent.right
                y: 8
                visible: root.alternative !== ""
                enabled: root.alternativeEnabled
                text: root.alternative
                onClicked: root.alternativeChosen()
            }
        }
    }
}
