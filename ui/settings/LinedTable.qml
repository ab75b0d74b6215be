import QtQuick
import Orvella.Design

/// The frame around a table that is no page of its own.
FocusScope {
    id: root

    default property alias content: inside.data

    Item {
        id: inside
        anchors { fill: parent; margins: 1 }
        clip: true
    }

    Rectangle {
        anchors.fill: parent
        z: 3
        color: "transparent"
        radius: Theme.radiusCard
        border { width: 1; color: Theme.border }
    }
}
