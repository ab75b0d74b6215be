import QtQuick
import Orvella.App
import Orvella.Campaigns

/// The workspace's campaigns, or the archive of deleted ones in their place.
FocusScope {
    id: root

    required property CampaignsStore store

    Component.onCompleted: store.ensureLoaded()

    PageSwitch {
        anchors.fill: parent
        sourceComponent: root.store.showArchived ? archive : live
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
