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
            // Of the rows' own ticks Tab would find only those that are made, and none that is off.
            activeFocusOnTab: count > 0
            highlightMoveDuration: 0
            Accessible.role: Accessible.List
            Accessible.name: "Inboxes"

            T.ScrollBar.vertical: OrvScrollBar {}

            delegate: Item {
                id: row

                required property int index
                required property string address
                required property bool existing
                required property bool picked
                required property string status
                required property string statusText
                required property string message

                width: list.width
                height: 36
                Accessible.role: root.done ? Accessible.ListItem : Accessible.CheckBox
                Accessible.name: (root.done ? outcome.text : address) + (statusText === "" ? "" : ", " + statusText)
                Accessible.focusable: true
                Accessible.checkable: tick.visible
                Accessible.checked: tick.visible && picked
                Accessible.onPressAction: press()
                Accessible.onToggleAction: press()
                Keys.onSpacePressed: event => {
                    if (!event.isAutoRepeat)
                        press();
                }

                function press() {
                    if (tick.visible)
                        tick.flip();
                }

                OrvCheckbox {
                    id: tick
                    activeFocusOnTab: false
                    Accessible.ignored: true
                    visible: !root.done
                    x: 12
                    width: row.width - x - badge.width - 24
                    anchors.verticalCenter: parent.verticalCenter
                    enabled: !row.existing && !root.flow.connecting
                    text: row.address
                    checked: row.picked
                    onToggled: root.flow.toggle(row.address)
                    onClicked: list.currentIndex = row.index
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
                    Accessible.ignored: true

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

                FocusRing {
                    visible: row.activeFocus && InputMode.keyboard
                    inset: true
                }
            }
        }
    }
}
