import QtQuick
import Orvella.Design

/// What there is to say of a list that a form picks from; when it could not be read, with another try.
Row {
    id: root

    property string text: ""
    property bool failed: false

    signal retryRequested()

    visible: text !== ""
    spacing: 12

    Text {
        width: Math.min(implicitWidth, root.width - (retry.visible ? retry.width + root.spacing : 0))
        textFormat: Text.PlainText
        text: root.text
        font: root.failed ? Theme.body : Theme.small
        color: root.failed ? Theme.negative : Theme.text3
        wrapMode: Text.Wrap
        Accessible.role: root.failed ? Accessible.AlertMessage : Accessible.StaticText
        Accessible.name: text
    }

    OrvLink {
        id: retry
        visible: root.failed
        text: "Try again"
        onClicked: root.retryRequested()
    }
}
