import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// How many leads can still be unlocked.
SettingsPane {
    id: root

    summary: "What unlocking leads has used. More is bought on the web app's billing page."

    ResourceView {
        anchors.fill: parent
        resource: root.store.lists.allowance
        errorTitle: "Couldn’t load the allowance"
        onRetryRequested: root.store.refresh()

        OrvForm {
            anchors.fill: parent
            focus: true

            OrvProgress {
                width: parent.width
                value: root.store.lists.allowanceUsed
            }

            FactList {
                width: parent.width
                title: ""
                facts: root.store.lists.allowanceFacts
            }
        }
    }
}
