import QtQuick
import Orvella.Design

/// Work in progress: appears after a moment, stays long enough to be seen, turns only while it can be.
Item {
    id: root

    property bool running: false
    property color color: Theme.text2
    property int size: 14
    readonly property bool shown: delay.elapsed

    implicitWidth: size
    implicitHeight: size

    onRunningChanged: {
        if (running) {
            delay.interval = Theme.skeletonDelay;
            delay.restart();
        } else if (delay.elapsed) {
            delay.interval = Theme.busyAtLeast;
            delay.restart();
        } else {
            delay.stop();
        }
    }

    Timer {
        id: delay
        property bool elapsed: false
        onTriggered: elapsed = root.running
    }

    OrvIcon {
        id: ring
        visible: root.shown
        name: "orv-ring"
        size: root.size
        color: root.color
        transformOrigin: Item.Center
        RotationAnimator on rotation {
            from: 0
            to: 360
            duration: 900
            loops: Animation.Infinite
            running: ring.visible && root.visible && !Theme.reducedMotion
        }
    }
}
