import QtQuick
import Orvella.Design

/// What was sent today, and of how many.
OrvCell {
    id: root

    property string text: ""
    property string plan: ""

    label: text + plan
    naturalWidth: count.implicitWidth + rest.implicitWidth

    Text {
        id: rest
        x: root.width - width
        height: root.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.plan
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    Text {
        id: count
        x: rest.x - width
        height: root.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.text
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }
}
