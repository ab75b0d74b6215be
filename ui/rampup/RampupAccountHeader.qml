import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// The top of an account's roadmap: the way back, the account, its phase, what can be done, and where it stands.
Item {
    id: root

    required property RampupAccountStore store
    readonly property bool loaded: store.address !== ""

    implicitHeight: 88

    Row {
        id: trail
        x: Theme.pageSide
        y: 12
        height: Theme.controlHeight
        spacing: 8

        OrvLink {
            anchors.verticalCenter: parent.verticalCenter
            text: "Rampup"
            quiet: true
            onClicked: root.store.openList()
        }

        OrvIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: "go-next"
            size: 12
            color: Theme.text3
        }
    }

    OrvAddress {
        id: title

        readonly property bool isPageHeading: true

        x: trail.x + trail.width + 8
        y: 12
        width: Math.min(implicitWidth, actions.x - x - badge.width - 24)
        height: Theme.controlHeight
        text: root.store.address
        font: Theme.pageTitle
        Accessible.role: Accessible.Heading
        Accessible.name: root.loaded ? text + ", " + badge.text : text
        Accessible.focusable: true

        OrvTooltip {
            text: title.whole ? "" : title.text
        }

        FocusRing {
            visible: title.activeFocus && InputMode.keyboard
        }
    }

    OrvBadge {
        id: badge
        visible: root.loaded
        x: title.x + title.width + 10
        y: 17
        text: root.store.phase
        tone: root.store.phaseTone
    }

    Row {
        id: actions
        visible: root.loaded
        x: root.width - width - Theme.pageSide
        y: 12
        spacing: 8

        OrvButton {
            visible: root.store.canWrite && (root.store.running || root.store.paused)
            text: root.store.paused ? "Resume roadmap" : "Pause roadmap"
            iconName: root.store.paused ? "media-playback-start" : "media-playback-pause"
            busy: root.store.busy
            onClicked: root.store.act(root.store.paused ? "resume" : "pause")
        }

        OrvButton {
            visible: root.store.onRoadmap
            text: "Edit roadmap"
            iconName: "document-edit"
            keys: "E"
            enabled: root.store.canWrite && !root.store.busy
            hint: root.store.canWrite ? "" : "Only members can edit roadmaps."
            onClicked: root.store.act("edit")
        }

        OrvButton {
            id: more
            iconOnly: true
            iconName: "overflow-menu"
            text: "More"
            onClicked: menu.openUnder(more)
        }
    }

    Row {
        x: Theme.pageSide
        y: 48
        height: 34
        spacing: 8

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.store.stateLine
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            visible: root.store.facts !== ""
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "· " + root.store.facts
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: root.store.facts
        }
    }

    Text {
        visible: root.width >= 900
        x: root.width - width - Theme.pageSide
        y: 48
        height: 34
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.store.person
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ActionMenu {
        id: menu
        title: "Actions for " + root.store.address
        store: root.store
    }
}
