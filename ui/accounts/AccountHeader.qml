import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// The top of an account's page: the way back, its address and connection, and what can be done with it.
Item {
    id: root

    required property AccountDetail store

    readonly property bool loaded: store.account.hasContent

    implicitHeight: 54

    OrvLink {
        id: trail
        x: Theme.pageSide
        y: 12
        height: Theme.controlHeight
        text: "Accounts"
        quiet: true
        onClicked: root.store.openAccounts()
    }

    OrvIcon {
        id: mark
        x: trail.x + trail.width + 8
        y: 12 + (Theme.controlHeight - height) / 2
        name: "go-next"
        size: 12
        color: Theme.text3
    }

    OrvAddress {
        id: title

        readonly property bool isPageHeading: true

        x: mark.x + mark.width + 8
        y: 12
        width: Math.min(implicitWidth, actions.x - x - badge.width - 34 - Math.min(check.implicitWidth, 150))
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

    ConnectionBadge {
        id: badge
        visible: root.loaded
        x: title.x + title.width + 10
        y: 17
        connection: root.store.connectionState
        text: root.store.connectionLabel
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Text {
        id: check
        x: badge.x + badge.width + 10
        y: 12
        width: Math.max(0, actions.x - x - 12)
        height: Theme.controlHeight
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.store.connectionError === "" ? root.store.lastCheck
            : root.store.lastCheck === "" ? root.store.connectionError : root.store.lastCheck + " · " + root.store.connectionError
        font: Theme.small
        color: root.store.connectionError !== "" ? Theme.negative : Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text

        OrvTooltip {
            text: check.truncated ? check.text : ""
        }
    }

    Row {
        id: actions
        visible: root.loaded
        x: root.width - width - Theme.pageSide
        y: 12
        spacing: 8

        OrvButton {
            kind: "ghost"
            text: root.store.copied ? "Copied" : "Copy email address"
            iconName: root.store.copied ? "checkmark" : "edit-copy"
            onClicked: root.store.copyAddress()
        }

        OrvButton {
            visible: root.store.canWrite
            text: root.store.mainAction === "check" ? "Check connection" : "Reconnect"
            iconName: "network-connect"
            busy: root.store.busy
            onClicked: root.store.act(root.store.mainAction)
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
        title: "Actions for " + root.store.address
        store: root.store
    }
}
