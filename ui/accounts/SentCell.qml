import QtQuick
import Orvella.Design

/// Campaign emails that an account has sent today, of those it may.
OrvCell {
    id: root

    /// "32 of 40", or a dash.
    property string text: ""
    property real share: 0
    /// Its row's ground is another one then.
    property bool ticked: false
    readonly property list<string> parts: text.split(" of ")
    readonly property bool counted: parts.length === 2

    label: text
    naturalWidth: sent.implicitWidth + limit.implicitWidth

    Text {
        id: sent
        y: root.counted ? root.height / 2 - 17 : 0
        height: root.counted ? 20 : root.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.parts[0]
        font: Theme.body
        color: root.counted ? Theme.text : Theme.text2
        Accessible.ignored: true
    }

    Text {
        id: limit
        visible: root.counted
        x: sent.width
        y: sent.y
        height: 20
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: " of " + root.parts[1]
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvProgress {
        visible: root.counted
        y: root.height / 2 + 7
        width: Math.min(96, root.width)
        value: root.share
        color: root.ticked ? Theme.surface : Theme.pressed
    }
}
