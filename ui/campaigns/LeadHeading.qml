import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// The top of a lead's drawer: how the lead stands, what comes next, and what can be done.
Column {
    id: root

    required property CampaignLeads store
    required property bool canWrite
    readonly property LeadPanel panel: store.panel
    readonly property bool open: panel.statusWord === "active" || panel.statusWord === "queued"

    spacing: 12

    Row {
        spacing: 10

        LeadBadge {
            status: root.panel.statusWord
            text: root.panel.statusLabel
        }

        Text {
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.panel.next
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: text === ""
        }
    }

    Row {
        visible: root.canWrite
        spacing: 8

        OrvButton {
            visible: !root.panel.removed && root.open
            text: "Pause"
            iconName: "media-playback-pause"
            enabled: !root.store.bulkBusy
            onClicked: root.store.pause([root.panel.leadId])
        }

        OrvButton {
            visible: !root.panel.removed && root.panel.statusWord === "paused"
            text: "Resume"
            iconName: "media-playback-start"
            enabled: !root.store.bulkBusy
            onClicked: root.store.resume([root.panel.leadId])
        }

        OrvButton {
            visible: !root.panel.removed
            text: "Move"
            iconName: "go-next"
            enabled: !root.store.bulkBusy
            onClicked: root.store.beginMove([root.panel.leadId])
        }

        OrvButton {
            visible: !root.panel.removed
            text: "Remove"
            iconName: "edit-delete"
            enabled: !root.store.bulkBusy
            onClicked: root.store.remove([root.panel.leadId])
        }

        OrvButton {
            visible: root.panel.removed
            text: "Restore"
            iconName: "edit-undo"
            enabled: !root.store.bulkBusy
            onClicked: root.store.restore([root.panel.leadId])
        }
    }
}
