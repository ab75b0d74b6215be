import QtQuick
import Orvella.Design

/// The brand's mark.
Rectangle {
    id: root

    property int size: 40

    implicitWidth: size
    implicitHeight: size
    radius: Math.round(size * 0.2)
    color: Theme.accent
    Accessible.ignored: true

    OrvIcon {
        anchors.centerIn: parent
        name: "orv-mark"
        size: Math.round(root.size * 0.7)
        color: Theme.inkOnAccent
    }
}
