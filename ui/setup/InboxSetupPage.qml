import QtQuick
import Orvella.App
import Orvella.Setup

/// The projects of inbox setup, or those that were deleted.
FocusScope {
    id: root

    required property InboxSetupStore store

    Component.onCompleted: store.ensureLoaded()

    PageSwitch {
        anchors.fill: parent
        sourceComponent: root.store.showArchived ? archive : projects
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
