import QtQuick
import Orvella.Design

/// How many wait, beside or on an icon; nothing when none do.
Rectangle {
    id: root

    required property int count
    /// On an icon, where it has to be seen without its word.
    property bool strong: false

    visible: count > 0
    width: Math.max(height, label.implicitWidth + 10)
    height: 16
    radius: height / 2
    color: strong ? Theme.accent : Theme.neutralSubtle
    Accessible.ignored: true

    Text {
        id: label
        anchors.centerIn: parent
        textFormat: Text.PlainText
        text: root.count > 99 ? "99+" : root.count
        font: Theme.microText
        color: root.strong ? Theme.inkOnAccent : Theme.text2
        Accessible.ignored: true
    }
}
