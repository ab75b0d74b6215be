import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The top of a campaign's page: the way back, its name and status, its main action and the rest of them.
Item {
    id: root

    required property CampaignStore store

    readonly property bool loaded: store.campaign.hasContent
    readonly property string action: store.mainAction
    readonly property bool proofShown: store.tab === "proof"

    implicitHeight: 54

    Row {
        id: trail
        x: Theme.pageSide
        y: 12
        height: Theme.controlHeight
        spacing: 8

        OrvLink {
            anchors.verticalCenter: parent.verticalCenter
            text: "Campaigns"
            quiet: true
            onClicked: root.store.openCampaigns()
        }

        TrailMark {}

        OrvLink {
            visible: root.store.parentId !== ""
            anchors.verticalCenter: parent.verticalCenter
            text: root.store.parentName
            quiet: true
            onClicked: root.store.openCampaign(root.store.parentId)
        }

        TrailMark {
            visible: root.store.parentId !== ""
        }
    }

    OrvHeading {
        id: title
        x: trail.x + trail.width + 8
        y: 12
        width: Math.min(implicitWidth, actions.x - x - badge.width - 24)
        height: Theme.controlHeight
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: root.loaded ? root.store.name : ""
        Accessible.name: root.loaded ? text + ", " + badge.text : ""
    }

    CampaignBadge {
        id: badge
        visible: root.loaded
        x: title.x + title.width + 10
        y: 17
        status: root.store.statusWord
        text: root.store.statusLabel
    }

    Row {
        id: actions
        visible: root.loaded
        x: root.width - width - Theme.pageSide
        y: 12
        spacing: 8

        SaveNote {
            // In other tabs "Saved" would be taken for what is edited there.
            visible: root.store.tab === "sequence" || failed
            height: Theme.controlHeight
            rightPadding: 8
            explained: root.store.tab === "sequence"
            autosave: root.store.sequence.autosave
        }

        OrvButton {
            visible: root.proofShown
            kind: "ghost"
            iconName: "arrow-left"
            text: "Back to the sequence"
            onClicked: root.store.tab = "sequence"
        }

        OrvButton {
            visible: root.action === "launch" && !root.proofShown
            iconName: "view-visible"
            text: "Proof wall"
            hint: "The first email, rendered for twelve of the leads"
            onClicked: root.store.tab = "proof"
        }

        OrvButton {
            visible: root.action !== "" && root.store.canWrite && !root.proofShown
            // Not the thing to do before there is something to launch.
            kind: root.store.readyToLaunch ? "primary" : "secondary"
            text: root.action === "pause" ? "Pause" : root.action === "resume" ? "Resume" : "Launch"
            iconName: root.action === "pause" ? "media-playback-pause" : "media-playback-start"
            busy: root.store.busy
            onClicked: root.store.act(root.action)
        }

        OrvButton {
            id: more
            iconOnly: true
            iconName: "overflow-menu"
            text: "More"
            onClicked: menu.openUnder(more)
        }
    }

    ActionMenu {
        id: menu
        title: "Actions for " + root.store.name
        store: root.store
    }

    component TrailMark: OrvIcon {
        anchors.verticalCenter: parent.verticalCenter
        name: "go-next"
        size: 12
        color: Theme.text3
    }
}
