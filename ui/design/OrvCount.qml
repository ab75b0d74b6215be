import QtQuick

/// A small number in a pill.
Rectangle {
    id: root

    property int value: 0
    property bool accented: false
    property string text: value.toLocaleString(Qt.locale(), "f", 0)

    implicitWidth: Math.max(18, label.implicitWidth + 10)
    implicitHeight: 16
    radius: height / 2
    color: accented ? Theme.accent : Theme.neutralSubtle
    Accessible.ignored: true

    Text {
        id: label
        anchors.centerIn: parent
        textFormat: Text.PlainText
        text: root.text
        font: Theme.micro
        color: root.accented ? Theme.inkOnAccent : Theme.text2
    }
}
