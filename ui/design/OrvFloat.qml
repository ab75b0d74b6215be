import QtQuick
import Orvella.Design

/// The ground of everything that floats over a page: raised, a hairline and one soft shadow.
Rectangle {
    id: root

    radius: 10
    color: Theme.raised
    border { width: 1; color: Theme.border }

    FloatShadow {
        z: -1
        anchors { fill: parent; margins: -blur; topMargin: Theme.shadowDrop - blur; bottomMargin: -Theme.shadowDrop - blur }
        blur: Theme.shadowBlur
        radius: root.radius
        color: Theme.shadow
    }
}
