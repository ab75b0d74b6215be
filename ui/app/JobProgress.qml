import QtQuick
import Orvella.Design
import Orvella.App

/// How far the job of a form is, and the way to stop it.
Item {
    id: root

    required property JobForm form

    implicitHeight: 44

    Text {
        width: stop.x - 12
        height: 30
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: root.form.progressText
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvButton {
        id: stop
        anchors.right: parent.right
        text: "Stop"
        onClicked: root.form.stop()
    }

    OrvProgress {
        visible: root.form.progress >= 0
        y: 38
        width: parent.width
        value: root.form.progress
    }
}
