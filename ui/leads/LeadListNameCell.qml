import QtQuick
import Orvella.Design

/// A list's name and number; below them what it is for.
OrvTwoLineCell {
    id: root

    property string name: ""
    property string number: ""
    property string description: ""

    title: name
    detail: description
    tagsSaid: number

    Text {
        visible: root.number !== ""
        height: 19
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.number
        font: Theme.small
        color: Theme.text3
        Accessible.ignored: true
    }
}
