import QtQuick
import Orvella.Design

/// The box of a table's row or head, drawn only: the row itself takes the clicks and the keys, and speaks.
Rectangle {
    id: root

    property bool checked: false
    property bool mixed: false

    width: 16
    height: 16
    radius: Theme.radiusTag
    color: checked ? Theme.accent : Theme.surface
    border { width: checked ? 0 : 1.5; color: Theme.borderControl }

    OrvIcon {
        visible: root.checked && !root.mixed
        anchors.centerIn: parent
        size: 12
        name: "checkmark"
        color: Theme.inkOnAccent
    }

    Rectangle {
        visible: root.checked && root.mixed
        anchors.centerIn: parent
        width: 8
        height: 2
        radius: 1
        color: Theme.inkOnAccent
    }
}
