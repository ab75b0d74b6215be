import QtQuick
import Orvella.Design
import Orvella.Accounts

/// What the admin has to do, and how long it has been waited for.
Column {
    id: root

    required property GoogleConnect flow

    spacing: 16

    Column {
        width: parent.width
        spacing: 10

        Step { text: "1. Open Google Admin → Security → API controls → Domain-wide delegation." }
        Step { text: "2. Add new, paste the client ID and the scopes below, Authorize." }
        Step { text: "3. Come back here: this step continues on its own." }
    }

    CopyField {
        width: parent.width
        label: "Client ID"
        text: root.flow.clientId
        copied: root.flow.copied === "clientId"
        onCopyRequested: root.flow.copy("clientId")
    }

    CopyField {
        width: parent.width
        label: "Scopes"
        text: root.flow.scope
        copied: root.flow.copied === "scope"
        onCopyRequested: root.flow.copy("scope")
    }

    Rectangle {
        visible: root.flow.waiting
        width: parent.width
        height: 54
        radius: Theme.radiusCard
        color: Theme.accentSubtle

        OrvBusyRing {
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            running: root.flow.waiting
        }

        Text {
            x: 34
            y: 10
            textFormat: Text.PlainText
            text: "Waiting for your Authorize click in Google Admin"
            font: Theme.bodyStrong
            color: Theme.text
            // Said once; the counter goes on in silence.
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }

        Text {
            x: 34
            y: 29
            textFormat: Text.PlainText
            text: root.flow.waitedText
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvLink {
            anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
            text: "Stop waiting"
            onClicked: root.flow.cancelWait()
        }
    }

    component Step: Text {
        width: root.width
        textFormat: Text.PlainText
        font: Theme.body
        color: Theme.text
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
