import QtQuick
import Orvella.Design

/// What is wrong with a group of controls that is no field.
Row {
    id: root

    property string text: ""

    visible: text !== ""
    spacing: 8
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    SpokenError {
        shownBy: root
        text: root.text
    }

    OrvIcon {
        name: "data-error"
        size: 14
        color: Theme.negative
    }

    Text {
        width: root.width - 22
        textFormat: Text.PlainText
        text: root.text
        font: Theme.small
        color: Theme.negative
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
