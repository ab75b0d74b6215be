import QtQuick
import Orvella.Design

/// The edge of a pane at the right, to be drawn with the pointer or moved with the arrows.
Item {
    id: root

    property real paneWidth: 0
    property real least: 0
    property real most: 0

    signal moved(int width)

    function move(to: real) {
        moved(Math.round(Math.max(least, Math.min(most, to))));
    }

    width: 9
    activeFocusOnTab: true

    Accessible.role: Accessible.Splitter
    Accessible.name: "Width of the contact"
    Accessible.focusable: true

    Keys.onLeftPressed: move(paneWidth + 16)
    Keys.onRightPressed: move(paneWidth - 16)

    Rectangle {
        x: 4
        width: root.activeFocus && InputMode.keyboard || drag.active ? 2 : 1
        height: root.height
        color: root.activeFocus && InputMode.keyboard || drag.active ? Theme.focus : Theme.border
    }

    HoverHandler {
        cursorShape: Qt.SplitHCursor
    }

    DragHandler {
        id: drag

        property real from: 0

        target: null
        yAxis.enabled: false
        onActiveChanged: if (active) from = root.paneWidth
        // The edge moves under the pointer, so what counts is where it is in the window.
        onCentroidChanged: if (active) root.move(from - (centroid.scenePosition.x - centroid.scenePressPosition.x))
    }
}
