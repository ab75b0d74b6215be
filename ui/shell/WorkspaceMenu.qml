import QtQuick
import QtQml
import Orvella.Design
import Orvella.Shell

/// The person's workspaces; letters typed jump to a name, and with many there is a search above them.
OrvMenu {
    id: root

    required property AppModel app

    readonly property bool searchable: app.workspaces.length > 8
    property string query: ""
    readonly property var found: [...app.workspaces].filter(workspace => [workspace.name, workspace.slug]
        .some(text => text.toLowerCase().includes(query.trim().toLowerCase())))

    title: "Workspaces"
    onOpened: if (searchable) search.forceActiveFocus(Qt.PopupFocusReason)
    onAboutToShow: query = ""

    OrvField {
        id: search
        visible: root.searchable
        width: root.availableWidth
        height: visible ? implicitHeight + 4 : 0
        search: true
        placeholder: "Search workspaces"
        text: root.query
        onEdited: text => root.query = text
        onEscaped: root.close()
        onAccepted: {
            if (root.found.length > 0) {
                root.app.openWorkspace(root.found[0].slug);
                root.close();
            }
        }
        Keys.onDownPressed: root.choose(root.nextEnabled(-1, 1))
    }

    Instantiator {
        model: root.found

        OrvMenuItem {
            required property var modelData
            readonly property int unread: root.app.notifier.unread[modelData.slug] ?? 0

            text: modelData.name
            iconName: modelData.current ? "checkmark" : "system-users"
            shortcutText: unread > 0 ? modelData.slug + " · " + unread + " unread" : modelData.slug
            onTriggered: root.app.openWorkspace(modelData.slug)
        }

        onObjectAdded: (index, object) => root.insertItem(index + 1, object)
        onObjectRemoved: (index, object) => root.removeItem(object)
    }
}
