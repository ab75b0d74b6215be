import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// Which pages the workspace has.
SettingsPane {
    id: root

    summary: "Owners and admins switch pages on and off for everybody in the web app."

    OrvForm {
        anchors.fill: parent
        focus: true
        isStop: true

        FactList {
            width: parent.width
            title: ""
            facts: root.store.features
        }
    }
}
