import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// How far adding leads is, and the way to stop it.
Item {
    id: root

    required property LeadAdding adding

    implicitHeight: 44

    Text {
        width: stop.x - 12
        height: 30
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: root.adding.progressText
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvButton {
        id: stop
        anchors.right: parent.right
        text: "Stop"
        onClicked: root.adding.stop()
    }

    OrvProgress {
        visible: root.adding.progress >= 0
        y: 38
        width: parent.width
        value: root.adding.progress
    }
}
