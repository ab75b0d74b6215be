import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// Connects the inboxes of a Google Workspace domain, one stage after the other.
Column {
    id: root

    required property AddAccount adding
    readonly property GoogleConnect flow: adding.google
    readonly property string stage: flow.stage
    readonly property bool asks: stage === "asking" || stage === "steps" || stage === "directory"

    /// What the dialog's button does.
    readonly property string verb: stage === "steps" ? "Open Google Admin"
                                 : stage === "directory" && flow.pickable > 0 ? flow.connectLabel
                                 : stage === "outcome" ? "Done" : ""
    readonly property bool verbEnabled: stage !== "directory" || flow.canConnect
    /// There is nothing to cancel.
    readonly property bool closes: stage === "unavailable" || stage === "outcome"

    function act() {
        if (stage === "steps")
            flow.openAdmin();
        else if (stage === "directory")
            flow.connectPicked();
        else
            adding.cancel();
    }

    spacing: 16

    OrvStateView {
        visible: root.stage === "checking"
        width: parent.width
        height: 160
        status: root.flow.status.state === Resource.Error ? "error"
              : root.flow.status.state === Resource.Offline ? "offline" : "loading"
        errorTitle: "Couldn’t check Google Workspace"
        errorText: root.flow.status.message
        onRetryRequested: root.flow.retry()
    }

    Text {
        visible: root.stage === "unavailable"
        width: parent.width
        textFormat: Text.PlainText
        text: "Google Workspace is not set up on this platform yet. Orvella's admin adds the service account key on the Admin site; then this works for every workspace."
        font: Theme.body
        color: Theme.text2
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        visible: root.asks
        width: parent.width
        spacing: 8
        onVisibleChanged: if (visible) address.forceActiveFocus(Qt.OtherFocusReason)

        OrvField {
            id: address
            width: parent.width - find.width - 8
            label: "Your Google Workspace admin address"
            help: root.flow.addressHint
            text: root.adding.admin
            onEdited: text => root.adding.admin = text
            onAccepted: root.flow.find(root.adding.admin)
        }

        OrvButton {
            id: find
            y: 22
            text: "Find inboxes"
            busy: root.flow.looking
            enabled: root.adding.admin.trim() !== "" && !root.flow.connecting
            onClicked: root.flow.find(root.adding.admin)
        }
    }

    OrvDivider {
        visible: steps.visible || inboxes.visible
        width: parent.width
    }

    GoogleSteps {
        id: steps
        visible: root.stage === "steps"
        width: parent.width
        flow: root.flow
    }

    GoogleInboxes {
        id: inboxes
        visible: root.stage === "directory" || root.stage === "outcome"
        width: parent.width
        flow: root.flow
    }
}
