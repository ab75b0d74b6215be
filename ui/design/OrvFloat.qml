import QtQuick

/// The ground of everything that floats over a page: raised, a hairline and one soft shadow.
Rectangle {
    id: root

    radius: 10
    color: Theme.raised
    border { width: 1; color: Theme.border }

    // The shadow as stacked outlines: effects need a graphics card, which not every desktop has.
    Repeater {
        model: 6

        Rectangle {
            required property int index

            readonly property real spread: 2 + index * 4

            z: -1
            anchors { fill: parent; margins: -spread; topMargin: 8 - spread; bottomMargin: -8 - spread }
            radius: root.radius + spread
            color: Theme.shadow
            opacity: 0.16
        }
    }
}
