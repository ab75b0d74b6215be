pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Accounts

/// The inboxes of a domain: to be picked and, once that has been tried, with what came of each.
Column {
    id: root

    required property GoogleConnect flow
    readonly property bool done: flow.stage === "outcome"

    spacing: 8

    Item {
        width: parent.width
        height: 26

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.done ? root.flow.outcomeText : root.flow.directoryText
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        OrvLink {
            readonly property bool all: root.flow.pickedCount === root.flow.pickable

            visible: !root.done && root.flow.pickable > 0
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            text: all ? "Clear all" : "Select all"
            onClicked: root.flow.pickAll(!all)
        }
    }

    Rectangle {
        width: parent.width
        height: Math.min(list.contentHeight, 252) + 2
        radius: Theme.radiusControl
        color: "transparent"
        border { width: 1; color: Theme.border }

        ListView {
            id: list
            anchors { fill: parent; margins: 1 }
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.flow.inboxes
            Accessible.role: Accessible.List
            Accessible.name: "Inboxes"

            T.ScrollBar.vertical: OrvScrollBar {}
            RowFocus { target: list }

            delegate: Item {
                id: row

                required property string address
                required property bool existing
                required property bool picked
                required property string status
                required property string statusText
                required property string message

                width: list.width
                height: 36

                OrvCheckbox {
                    id: tick
                    visible: !root.done
                    x: 12
                    width: row.width - x - badge.width - 24
                    anchors.verticalCenter: parent.verticalCenter
                    enabled: !row.existing && !root.flow.connecting
                    text: row.address
                    checked: row.picked
                    onToggled: root.flow.toggle(row.address)
                }

                Text {
                    id: outcome
                    visible: root.done
                    x: 12
                    width: row.width - x - badge.width - 24
                    height: row.height
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    text: row.status === "connected" || row.message === "" ? row.address : row.address + " · " + row.message
                    font: Theme.body
                    color: Theme.text
                    Accessible.role: Accessible.ListItem
                    Accessible.name: text + ", " + row.statusText

                    OrvTooltip {
                        text: outcome.truncated ? outcome.text : ""
                    }
                }

                OrvBadge {
                    id: badge
                    visible: text !== ""
                    anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
                    text: row.statusText
                    tone: row.status === "connected" ? "positive"
                        : row.status === "failed" || row.status === "invalid" ? "negative"
                        : row.status === "admin_step_missing" ? "warning" : "neutral"
                    shape: tone === "negative" ? "square" : tone === "warning" ? "diamond" : "dot"
                }
            }
        }
    }
}
