import QtQuick
import Orvella.Design
import Orvella.Settings

/// The settings' tabs at the left, and the one that is open.
FocusScope {
    id: root

    required property SettingsStore store

    readonly property string tab: store.tab

    function show() {
        const name = tab.charAt(0).toUpperCase() + tab.slice(1);
        host.setSource(name + "Tab.qml", { store: store, focus: true });
    }

    onTabChanged: show()

    Component.onCompleted: {
        store.ensureLoaded();
        show();
    }

    SettingsList {
        id: tabs
        width: 200
        height: root.height
        focus: true
        store: root.store
    }

    Rectangle {
        x: tabs.width
        width: 1
        height: root.height
        color: Theme.border
    }

    Loader {
        id: host
        x: tabs.width + 1
        width: root.width - x
        height: root.height
    }
}
