pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// Where an account's warm-up emails of the last 30 days were found, and how many there were.
Column {
    id: root

    required property RampupAccountStore store
    readonly property list<real> parts: store.healthParts

    spacing: 10

    Item {
        width: root.width
        height: 26

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Health, 30 days"
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            anchors.right: parent.right
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.store.healthScore
            font: Theme.bodyBold
            color: root.store.healthLow ? Theme.warning : Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: "Health " + text
            Accessible.ignored: text === ""
        }
    }

    Row {
        visible: root.parts.length === 3
        width: root.width
        spacing: 3

        Repeater {
            model: root.parts.length

            Rectangle {
                required property int index

                width: Math.max(root.parts[index] > 0 ? 3 : 0, (root.width - 6) * (root.parts[index] ?? 0))
                height: 6
                radius: 3
                color: index === 0 ? Theme.positive : index === 1 ? Theme.negative : Theme.borderControl
            }
        }
    }

    Text {
        width: root.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.store.healthText
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvNotice {
        visible: text !== ""
        width: root.width
        text: root.store.healthWarning
    }

    FactList {
        width: root.width
        title: "Warm-up emails, 30 days"
        facts: root.store.statLines
    }
}
