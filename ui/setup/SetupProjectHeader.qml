import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// The top of a project's page: the way back, its name and how its run stands, and what can be done.
Item {
    id: root

    required property SetupProjectStore store

    readonly property bool loaded: store.project.hasContent
    readonly property string action: store.mainAction
    readonly property var words: ({
        run: "Run",
        pause: "Pause",
        resume: "Resume",
        again: "Run again",
        restore: "Restore"
    })

    implicitHeight: 54

    Row {
        id: trail
        x: Theme.pageSide
        y: 12
        height: Theme.controlHeight
        spacing: 8

        OrvLink {
            anchors.verticalCenter: parent.verticalCenter
            text: "Inbox setup"
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

    OrvHeading {
        id: title
        x: trail.x + trail.width + 8
        y: 12
        width: Math.min(implicitWidth, actions.x - x - badges.width - 24)
        height: Theme.controlHeight
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: root.store.name
        Accessible.name: root.loaded ? text + ", " + root.store.modeText + ", " + root.store.runText : text
    }

    Row {
        id: badges
        visible: root.loaded
        x: title.x + title.width + 10
        y: 17
        spacing: 8

        OrvBadge {
            text: root.store.modeText
            shape: "ring"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvBadge {
            text: root.store.runText
            tone: root.store.runTone
            shape: tone === "negative" ? "square" : tone === "warning" ? "diamond" : tone === "neutral" ? "ring" : "dot"
            Accessible.role: Accessible.StaticText
            Accessible.name: "Run: " + text
        }
    }

    Row {
        id: actions
        visible: root.loaded
        x: root.width - width - Theme.pageSide
        y: 12
        spacing: 8

        Text {
            visible: text !== ""
            height: Theme.controlHeight
            rightPadding: 8
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.store.form.dirty ? "" : root.store.form.savedText
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvButton {
            visible: root.store.canWrite && root.action !== ""
            kind: root.action === "run" || root.action === "resume" || root.action === "again" ? "primary" : "secondary"
            text: root.words[root.action] ?? ""
            iconName: root.action === "pause" ? "media-playback-pause" : root.action === "again" ? "view-refresh"
                : root.action === "restore" ? "edit-undo" : "media-playback-start"
            busy: root.store.busy
            onClicked: root.store.act(root.action)
        }

        OrvButton {
            visible: root.store.canWrite && (root.action === "pause" || root.action === "resume")
            text: "Terminate"
            enabled: !root.store.busy
            onClicked: root.store.act("terminate")
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
}
