import QtQuick
import Orvella.Design

/// The one sentence about what went wrong under a form.
Item {
    id: root

    property string text: ""

    visible: text !== ""
    implicitHeight: visible ? words.implicitHeight + 8 : 0

    OrvIcon {
        y: 9
        size: 14
        name: "data-error"
        color: Theme.negative
    }

    Text {
        id: words
        x: 22
        y: 8
        width: root.width - x
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.text
        font: Theme.small
        color: Theme.negative
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
}
