import QtQuick

/// One key, or keys pressed together, as printed on a keyboard.
Rectangle {
    id: root

    property string text: ""
    property bool filled: false

    implicitWidth: Math.max(18, label.implicitWidth + 10)
    implicitHeight: 18
    radius: Theme.radiusTag
    color: filled ? "transparent" : Theme.bg
    border.width: 1
    border.color: filled ? Qt.alpha(Theme.inkOnAccent, 0.5) : Theme.border
    Accessible.ignored: true

    Text {
        id: label
        anchors.centerIn: parent
        textFormat: Text.PlainText
        text: root.text
        font: Theme.micro
        color: root.filled ? Theme.inkOnAccent : Theme.text2
    }
}
