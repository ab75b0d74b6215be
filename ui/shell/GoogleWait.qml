import QtQuick
import Orvella.Design
import Orvella.Shell

/// While the browser has the turn: how to come back when it cannot bring the person back itself.
FocusScope {
    id: root

    required property SignInModel model

    implicitHeight: column.height

    Column {
        id: column
        width: parent.width
        spacing: 16

        Text {
            width: parent.width
            wrapMode: Text.Wrap
            lineHeightMode: Text.FixedHeight
            lineHeight: 22
            textFormat: Text.PlainText
            text: "Finish signing in with Google in your browser. This window carries on by itself."
            font: Theme.reading
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvField {
            id: link
            width: parent.width
            focus: true
            large: true
            label: "Nothing happens? Paste the sign-in link"
            help: "Copy the link that your browser could not open."
            error: root.model.error
            onAccepted: root.model.takeGoogleLink(text)
        }

        Row {
            spacing: 8

            OrvButton {
                kind: "primary"
                text: "Use this link"
                enabled: link.text.trim() !== ""
                onClicked: root.model.takeGoogleLink(link.text)
            }

            OrvButton {
                text: "Start again"
                onClicked: {
                    const model = root.model;
                    model.cancelGoogle();
                    model.continueWithGoogle();
                }
            }

            OrvButton {
                text: "Cancel"
                onClicked: root.model.cancelGoogle()
            }
        }
    }
}
