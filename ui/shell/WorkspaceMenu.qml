import QtQuick
import QtQml
import Orvella.Design
import Orvella.Shell

/// The person's workspaces; with many, letters typed jump to a name.
OrvMenu {
    id: root

    required property AppModel app

    title: "Workspaces"

    Instantiator {
        model: root.app.workspaces

        OrvMenuItem {
            required property var modelData
            readonly property int unread: root.app.notifier.unread[modelData.slug] ?? 0

            text: modelData.name
            iconName: modelData.current ? "checkmark" : "system-users"
            shortcutText: unread > 0 ? modelData.slug + " · " + unread + " unread" : modelData.slug
            onTriggered: root.app.openWorkspace(modelData.slug)
        }

        onObjectAdded: (index, object) => root.insertItem(index, object)
        onObjectRemoved: (index, object) => root.removeItem(object)
    }
}
