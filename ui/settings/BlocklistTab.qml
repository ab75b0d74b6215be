import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// Who never gets an email: whether those who unsubscribe are among them.
SettingsPane {
    id: root

    summary: "Addresses on the blocklist never get an email from this workspace."

    ResourceView {
        anchors.fill: parent
        resource: root.store.workspace
        errorTitle: "Couldn’t load the workspace"
        onRetryRequested: root.store.refresh()

        OrvForm {
            anchors.fill: parent
            focus: true
            editable: root.store.canManage && !root.store.savingBlocklist

            SwitchLine {
                width: parent.width
                text: "Unsubscribes go to the blocklist"
                help: root.store.canManage ? "Who unsubscribes from one campaign hears from none any more."
                                           : "Only owners and admins can change it."
                checked: root.store.unsubscribesToBlocklist
                onToggled: on => {
                    root.store.setUnsubscribesToBlocklist(on);
                    checked = Qt.binding(() => root.store.unsubscribesToBlocklist);
                }
            }
        }
    }
}
