import QtQuick
import Orvella.Design

/// How far a campaign's leads have come, as a bar and in words.
OrvCell {
    id: root

    property real value: 0
    property string text: ""
    property bool running: false
    readonly property bool hasLeads: text !== "No leads yet"

    label: text

    OrvProgress {
        visible: root.hasLeads
        y: 8
        width: parent.width
        value: root.value
        fill: root.running ? Theme.accentText : Theme.borderControl
    }

    Text {
        y: root.hasLeads ? 15 : 0
        width: parent.width
        height: root.hasLeads ? 30 : parent.height
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        lineHeightMode: Text.FixedHeight
        lineHeight: 14
        textFormat: Text.PlainText
        text: root.text
        font: Theme.microText
        color: Theme.text2
        Accessible.ignored: true
    }
}
