import QtQuick
import Orvella.Design
import Orvella.App

/// An account in the list.
OrvTableRow {
    id: root

    required property OrvColumn accountColumn
    required property OrvColumn providerColumn
    required property OrvColumn statusColumn
    required property OrvColumn sentColumn
    required property OrvColumn warmupColumn
    required property OrvColumn healthColumn
    required property OrvColumn actionsColumn

    required property string account
    required property string name
    required property list<string> tags
    required property string problem
    required property string provider
    required property string statusWord
    required property string statusLabel
    required property string sentText
    required property real sentShare
    required property string warmupLabel
    required property string healthWord
    required property string healthText

    label: account + ", " + statusLabel

    AccountNameCell {
        column: root.accountColumn
        address: root.account
        name: root.name
        problem: root.problem
        tags: root.tags
    }

    OrvTextCell {
        column: root.providerColumn
        text: root.provider
        color: Theme.text2
    }

    OrvCell {
        column: root.statusColumn
        label: root.statusLabel

        AccountBadge {
            anchors.verticalCenter: parent.verticalCenter
            visible: !ring.shown
            status: root.statusWord
            text: root.statusLabel
        }

        OrvBusyRing {
            id: ring
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            running: root.busy
            color: Theme.text2
        }
    }

    SentCell {
        column: root.sentColumn
        text: root.sentText
        share: root.sentShare
        ticked: root.ticked
    }

    OrvTextCell {
        column: root.warmupColumn
        text: root.warmupLabel
        color: Theme.text2
    }

    HealthCell {
        column: root.healthColumn
        health: root.healthWord
        text: root.healthText
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.account
    }
}
