import QtQuick
import Orvella.Design

/// Shown while the stored session is read: most often for too short a time to be seen.
Rectangle {
    id: root

    property string name: ""

    color: Theme.surface

    Column {
        anchors.centerIn: parent
        spacing: 20

        // The animation's module takes longer to load than most starts last.
        Loader {
            id: intro
            anchors.horizontalCenter: parent.horizontalCenter
            width: 64
            height: 64
            asynchronous: true
            active: root.visible && !Theme.reducedMotion
            source: "IntroAnimation.qml"
        }

        OrvMark {
            visible: Theme.reducedMotion
            anchors.horizontalCenter: parent.horizontalCenter
            size: 40
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            textFormat: Text.PlainText
            text: root.name === "" ? "Opening Orvella…" : "Welcome back, " + root.name
            font: Theme.reading
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
