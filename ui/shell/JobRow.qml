import QtQuick
import Orvella.Design

/// One piece of long work.
Item {
    id: root

    property string name: ""
    property string place: ""
    property string fact: ""
    property bool running: false
    property bool failed: false
    property bool hasMore: false
    property real progress: -1

    signal stopped()
    signal opened()

    implicitHeight: 52

    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + place + ", " + fact

    Text {
        width: parent.width
        height: 20
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: root.name
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        y: 20
        width: act.x - 8
        height: 26
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        text: root.place + " · " + root.fact
        font: Theme.small
        color: root.failed ? Theme.negative : Theme.text2
        Accessible.ignored: true
    }

    OrvLink {
        id: act
        x: root.width - width
        y: 20
        visible: root.running || root.hasMore
        text: root.running ? "Stop" : "Details"
        Accessible.description: root.name
        onClicked: root.running ? root.stopped() : root.opened()
    }

    OrvProgress {
        visible: root.running && root.progress >= 0
        y: 48
        width: parent.width
        value: root.progress
    }
}
