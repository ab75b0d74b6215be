import QtQuick
import Orvella.App
import Orvella.Setup

/// The projects of inbox setup, or those that were deleted.
FocusScope {
    id: root

    required property InboxSetupStore store

    Component.onCompleted: store.ensureLoaded()

    Loader {
        readonly property var content: item

        anchors.fill: parent
        focus: true
        sourceComponent: root.store.showArchived ? archive : projects
        // Whoever went elsewhere and back goes on with the keyboard where the content is.
        onLoaded: content.focusTable()
    }

    Component {
        id: projects

        LiveProjects {
            store: root.store
        }
    }

    Component {
        id: archive

        ArchivedProjects {
            store: root.store
        }
    }

    NewProjectDialog {
        form: root.store.newProject
    }

    NameFormDialog {
        form: root.store.rename
    }
}
