import QtQuick
import Orvella.Accounts

/// The workspace's email accounts, or the archive of removed ones in their place.
FocusScope {
    id: root

    required property AccountsStore store

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
