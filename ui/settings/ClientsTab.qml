import QtQuick
import Orvella.Design
import Orvella.Settings

/// Workspaces for clients.
SettingsPane {
    id: root

    OrvEmpty {
        anchors.fill: parent
        focus: true
        iconName: "system-users"
        title: "A workspace for each client"
        text: root.store.canManage ? "The client sees its figures and replies, and nothing of your other workspaces."
                                   : "Only admins can create client workspaces."
        actionText: root.store.canManage ? "New client workspace" : ""
        onActionRequested: root.store.createClient()
    }

    ClientDialog {
        form: root.store.clientForm
    }
}
