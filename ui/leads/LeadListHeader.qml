import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The top of a list's page: the way back, its name and size, and what can be done with it.
Item {
    id: root

    required property LeadListStore store

    implicitHeight: 58

    OrvLink {
        id: trail
        x: Theme.pageSide
        height: parent.height
        text: "Lists"
        quiet: true
        onClicked: root.store.openLists()
    }

    OrvIcon {
        id: mark
        x: trail.x + trail.width + 8
        anchors.verticalCenter: parent.verticalCenter
        name: "go-next"
        size: 12
        color: Theme.text3
    }

    OrvHeading {
        id: title
        x: mark.x + mark.width + 8
        width: Math.min(implicitWidth, actions.x - x - 16)
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: root.store.name
        Accessible.description: root.store.countText
    }

    Text {
        x: title.x + title.width + 12
        width: actions.x - x - 16
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.store.countText + (root.store.description === "" ? "" : " · " + root.store.description)
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        id: actions
        anchors.verticalCenter: parent.verticalCenter
        x: root.width - width - Theme.pageSide
        spacing: 8

        RefreshButton {
            resource: root.store.results.list
            onClicked: root.store.refresh()
        }

        OrvButton {
            id: more
            kind: "ghost"
            text: "More"
            menuArrow: true
            busy: root.store.busy
            enabled: root.store.known
            onClicked: menu.openUnder(more)
        }

        OrvButton {
            text: "Export CSV"
            iconName: "document-export"
            enabled: root.store.known
            onClicked: root.store.exportCsv()
        }

        OrvButton {
            kind: "primary"
            text: "Add to campaign"
            iconName: "mail-send"
            enabled: root.store.known && root.store.canWrite
            onClicked: root.store.act("campaign")
        }
    }

    Rectangle {
        y: root.height - 1
        width: root.width
        height: 1
        color: Theme.border
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
