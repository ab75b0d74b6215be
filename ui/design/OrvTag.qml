import QtQuick

Rectangle {
    id: root

    property string text: ""

    implicitWidth: Math.min(160, label.implicitWidth) + 14
    implicitHeight: 18
    radius: Theme.radiusTag
    color: "transparent"
    border.width: 1
    border.color: Theme.border

    Text {
        id: label
        anchors.fill: parent
        anchors.leftMargin: 7
        anchors.rightMargin: 7
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.text
        font: Theme.micro
        color: Theme.text2
    }
}
