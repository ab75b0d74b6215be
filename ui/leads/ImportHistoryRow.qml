import QtQuick
import Orvella.Design

/// One import: the file, where it goes, and what came of it or how far it is.
Item {
    id: root

    required property string id
    required property string name
    required property string statusWord
    required property string statusText
    required property string placeText
    required property string resultText
    required property bool isFailed
    required property bool canCancel
    required property bool isBusy
    required property real progress
    property real side: 20
    property bool canWrite: true

    signal cancelled(string id)

    implicitHeight: result.y + result.height + 14

    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + statusText + ", " + placeText + ", " + resultText

    Text {
        x: root.side
        y: 12
        width: badge.x - x - 12
        height: 22
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: root.name
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }

    OrvBadge {
        id: badge
        x: root.width - root.side - width
        y: 13
        text: root.statusText
        tone: {
            switch (root.statusWord) {
            case "done": return "positive";
            case "running": return "accent";
            case "failed": return "negative";
            default: return "neutral";
            }
        }
        shape: root.isFailed ? "square" : "dot"
    }

    Text {
        id: place
        x: root.side
        y: 34
        width: root.width - 2 * x
        height: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.placeText
        font: Theme.small
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvProgress {
        id: bar
        visible: root.progress >= 0
        x: root.side
        y: 58
        width: root.width - 2 * x
        value: root.progress
    }

    Text {
        id: result
        x: root.side
        y: bar.visible ? 70 : 54
        width: root.width - 2 * x - (cancel.visible ? cancel.width + 12 : 0)
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.resultText
        font: Theme.small
        color: root.isFailed ? Theme.negative : Theme.text2
        Accessible.ignored: true
    }

    OrvLink {
        id: cancel
        visible: root.canCancel && root.canWrite
        x: root.width - root.side - width
        y: result.y - 2
        height: 20
        enabled: !root.isBusy
        text: root.isBusy ? "Cancelling…" : "Cancel import"
        Accessible.description: root.name
        onClicked: root.cancelled(root.id)
    }

    OrvDivider {
        y: root.height - 1
        width: root.width
    }
}
