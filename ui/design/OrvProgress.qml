import QtQuick

/// A thin bar, from 0 to 1.
Rectangle {
    id: root

    property real value: 0
    property color fill: Theme.accentText

    implicitHeight: 4
    radius: height / 2
    color: Theme.pressed
    Accessible.ignored: true

    Rectangle {
        width: Math.round(parent.width * Math.max(0, Math.min(1, root.value)))
        height: parent.height
        radius: parent.radius
        color: root.fill
    }
}
