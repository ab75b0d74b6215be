import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// One email account: its state, what can be done with it, and its tabs.
FocusScope {
    id: root

    required property AccountDetail store

    Component.onCompleted: store.ensureLoaded()

    AccountHeader {
        id: header
        width: root.width
        store: root.store
    }

    OrvTabs {
        id: tabs
        x: Theme.pageSide
        y: header.height
        width: root.width - 2 * x
        focus: true
        visible: root.store.account.state !== Resource.Error
        label: "Account sections"
        options: root.store.tabs
        current: root.store.tab
        onChosen: key => root.store.tab = key
    }

    OrvDivider {
        id: line
        y: tabs.y + tabs.height
        width: root.width
    }

    ResourceView {
        y: line.y + line.height
        width: root.width
        height: root.height - y
        resource: root.store.account
        errorTitle: "Couldn’t load this account"
        errorAction: "Back to accounts"
        onErrorActionRequested: root.store.openAccounts()
        onRetryRequested: root.store.refresh()

        Loader {
            anchors.fill: parent
            active: root.store.account.hasContent
            sourceComponent: root.store.tab === "settings" ? settings : activity
        }
    }

    Component {
        id: activity

        AccountActivityTab {
            store: root.store
        }
    }

    Component {
        id: settings

        AccountSettingsTab {
            store: root.store
        }
    }

    ReconnectAccountDialog {
        form: root.store.reconnect
    }

    Shortcut {
        sequence: "Ctrl+Tab"
        onActivated: tabs.step(1)
    }

    Shortcut {
        sequence: "Ctrl+Shift+Tab"
        onActivated: tabs.step(-1)
    }
}
