import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// What can be done to one lead of the table.
MenuLoader {
    id: root

    required property CampaignLeads store
    required property bool canWrite
    // What the menu is about is held by id: rows move while it is open.
    property string lead: ""
    property string status: ""
    property string about: ""

    function openFor(key: string, row: var, x: real, y: real) {
        lead = key;
        status = row.statusWord;
        about = row.label;
        openIn(row, x, y);
    }

    sourceComponent: OrvMenu {
        title: "Actions for " + root.about

        OrvMenuItem {
            text: "Open"
            iconName: "document-preview"
            shortcutText: "Enter"
            onTriggered: root.store.open(root.lead)
        }

        OrvMenuItem {
            text: "Copy address"
            iconName: "edit-copy"
            shortcutText: "Ctrl C"
            onTriggered: root.store.copyAddress(root.lead)
        }

        OrvMenuItem {
            visible: root.canWrite && !root.store.leadsArchived && (root.status === "active" || root.status === "queued")
            text: "Pause"
            iconName: "media-playback-pause"
            onTriggered: root.store.pause([root.lead])
        }

        OrvMenuItem {
            visible: root.canWrite && !root.store.leadsArchived && root.status === "paused"
            text: "Resume"
            iconName: "media-playback-start"
            onTriggered: root.store.resume([root.lead])
        }

        OrvMenuItem {
            visible: root.canWrite && !root.store.leadsArchived
            text: "Move to another campaign"
            iconName: "go-next"
            onTriggered: root.store.beginMove([root.lead])
        }

        OrvMenuItem {
            visible: root.canWrite && root.store.leadsArchived
            text: "Restore"
            iconName: "edit-undo"
            onTriggered: root.store.restore([root.lead])
        }

        OrvMenuSeparator {
            visible: root.canWrite
        }

        OrvMenuItem {
            visible: root.canWrite
            text: root.store.leadsArchived ? "Delete for good" : "Remove"
            iconName: "edit-delete"
            shortcutText: "Del"
            danger: true
            onTriggered: root.store.leadsArchived ? root.store.removeForGood(root.lead) : root.store.remove([root.lead])
        }
    }
}
