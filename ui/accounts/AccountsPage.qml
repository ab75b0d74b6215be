import QtQuick
import Orvella.App
import Orvella.Accounts

/// The workspace's email accounts, or the archive of removed ones in their place.
FocusScope {
    id: root

    required property AccountsStore store

    Component.onCompleted: store.ensureLoaded()

    PageSwitch {
        anchors.fill: parent
        sourceComponent: root.store.showArchived ? archive : live
    }

    Component {
        id: live

        LiveAccounts {
            store: root.store
        }
    }

    Component {
        id: archive

        ArchivedAccounts {
            store: root.store
        }
    }

    AddAccountDialog {
        form: root.store.adding
    }

    AccountBulkDialog {
        bulk: root.store.bulk
    }
}
