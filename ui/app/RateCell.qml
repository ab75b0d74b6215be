import QtQuick
import Orvella.Design

/// A count with its share after it, each aligned to the right under its like.
OrvCell {
    id: root

    property string text: ""
    property string rate: ""
    property color color: Theme.text

    label: rate === "" ? text : text + ", " + rate
    naturalWidth: count.implicitWidth + (rate === "" ? 0 : 43)

    Text {
        visible: root.rate !== ""
        x: root.width - width
        width: 40
        height: root.height
        horizontalAlignment: Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.rate
        font: Theme.small
        color: Theme.text3
        Accessible.ignored: true
    }

    Text {
        id: count
        width: root.rate === "" ? root.width : root.width - 43
        height: root.height
        horizontalAlignment: Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.text
        font: Theme.body
        color: root.color
        Accessible.ignored: true
    }
}
