import QtQuick
import Orvella.Design

/// A tab whose work is done in the web app: what that is, and the way there.
SettingsPane {
    id: root

    property string iconName: "internet-services"
    property string heading: ""
    property string text: ""
    property string path: ""

    OrvEmpty {
        anchors.fill: parent
        focus: true
        iconName: root.iconName
        title: root.heading
        text: root.text
        actionText: "Open the web app"
        onActionRequested: root.store.openOnWeb(root.path)
    }
}
