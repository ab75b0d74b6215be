import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Leads

/// A group of filters under its head, which opens and closes it and says how many of them hold.
Column {
    id: root

    required property LeadFilters filters
    required property string group
    required property string title
    required property int holding
    required property bool open

    OrvDivider {
        width: parent.width
    }

    T.AbstractButton {
        id: head
        width: parent.width
        height: 36
        focusPolicy: Qt.StrongFocus
        activeFocusOnTab: true
        text: root.title

        Accessible.role: Accessible.Button
        Accessible.name: text + (root.holding > 0 ? ", " + root.holding : "")
        Accessible.description: root.open ? "open" : "closed"
        Accessible.onPressAction: clicked()
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        Keys.onLeftPressed: root.filters.setOpen(root.group, false)
        Keys.onRightPressed: root.filters.setOpen(root.group, true)
        onClicked: root.filters.setOpen(root.group, !root.open)

        background: Rectangle {
            color: head.hovered ? Theme.hover : "transparent"

            FocusRing {
                visible: head.activeFocus && InputMode.keyboard
                inset: true
            }
        }

        contentItem: Item {
            Text {
                x: 16
                width: chevron.x - x - 32
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: head.text
                font: Theme.bodyStrong
                color: Theme.text
            }

            Rectangle {
                visible: root.holding > 0
                x: chevron.x - width - 8
                anchors.verticalCenter: parent.verticalCenter
                width: Math.max(18, number.implicitWidth + 10)
                height: 16
                radius: 8
                color: Theme.accentSubtle

                Text {
                    id: number
                    anchors.centerIn: parent
                    textFormat: Text.PlainText
                    text: root.holding
                    font: Theme.micro
                    color: Theme.accentText
                }
            }

            OrvIcon {
                id: chevron
                x: parent.width - width - 14
                anchors.verticalCenter: parent.verticalCenter
                size: 12
                name: root.open ? "go-up" : "go-down"
                color: Theme.text3
            }
        }
    }

    Loader {
        width: parent.width
        active: root.open
        visible: active
        sourceComponent: FilterFields {
            filters: root.filters
            group: root.group
        }
    }
}
