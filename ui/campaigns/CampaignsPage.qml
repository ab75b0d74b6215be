import QtQuick
import Orvella.App
import Orvella.Campaigns

/// The workspace's campaigns, or the archive of deleted ones in their place.
FocusScope {
    id: root

    required property CampaignsStore store

    Component.onCompleted: store.ensureLoaded()

    Loader {
        readonly property var content: item

        anchors.fill: parent
        focus: true
        sourceComponent: root.store.showArchived ? archive : live
        // Whoever went to the archive and back goes on with the keyboard where the content is.
        onLoaded: content.focusTable()
    }

    Component {
        id: live

        LiveCampaigns {
            store: root.store
        }
    }

    Component {
        id: archive

        ArchivedCampaigns {
            store: root.store
        }
    }

    NameFormDialog {
        form: root.store.newCampaign
    }

    NameFormDialog {
        form: root.store.rename
    }
}
