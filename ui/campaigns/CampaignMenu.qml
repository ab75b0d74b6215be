import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// What can be done to one campaign of the list.
MenuLoader {
    id: root

    required property CampaignsStore store
    // What the menu is about is held by id: rows move while it is open.
    property string campaign: ""
    property string status: ""

    function openFor(key: string, row: var, x: real, y: real) {
        campaign = key;
        status = row.statusWord;
        openIn(row, x, y);
    }

    sourceComponent: OrvMenu {
        title: "Actions"

        OrvMenuItem {
            enabled: root.store.canWrite
            text: "Rename"
            iconName: "document-edit"
            shortcutText: "F2"
            onTriggered: root.store.beginRename(root.campaign)
        }

        OrvMenuItem {
            visible: root.status === "running"
            enabled: root.store.canWrite
            text: "Pause"
            iconName: "media-playback-pause"
            onTriggered: root.store.pause(root.campaign)
        }

        OrvMenuItem {
            visible: root.status === "paused"
            enabled: root.store.canWrite
            text: "Resume"
            iconName: "media-playback-start"
            onTriggered: root.store.resume(root.campaign)
        }

        OrvMenuItem {
            enabled: root.store.canWrite
            text: "Duplicate"
            iconName: "edit-copy"
            shortcutText: "Ctrl D"
            onTriggered: root.store.duplicate(root.campaign)
        }

        OrvMenuItem {
            text: "Copy link"
            iconName: "insert-link"
            shortcutText: "Ctrl C"
            onTriggered: root.store.copyLink(root.campaign)
        }

        OrvMenuItem {
            text: "Download analytics CSV"
            iconName: "download"
            onTriggered: root.store.downloadAnalytics(root.campaign)
        }

        OrvMenuSeparator {}

        OrvMenuItem {
            enabled: root.store.canWrite
            text: "Delete"
            iconName: "edit-delete"
            shortcutText: "Del"
            danger: true
            onTriggered: root.store.remove(root.campaign)
        }
    }
}
