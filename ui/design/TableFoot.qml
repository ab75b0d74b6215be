import QtQuick

/// What stands under the last row of an OrvTable while there are more on the service.
Item {
    id: root

    required property TableCore table
    readonly property bool shown: table.moreFailed || table.loadingMore

    width: parent ? parent.width : 0
    height: shown ? 44 : 0
    visible: shown

    Row {
        anchors.centerIn: parent
        spacing: 8

        Text {
            anchors.verticalCenter: parent.verticalCenter
            textFormat: Text.PlainText
            text: root.table.moreFailed ? "Couldn’t load more." : "Loading…"
            font: Theme.body
            color: root.table.moreFailed ? Theme.negative : Theme.text3
        }

        OrvButton {
            visible: root.table.moreFailed
            anchors.verticalCenter: parent.verticalCenter
            kind: "ghost"
            size: "small"
            text: "Retry"
            onClicked: root.table.moreRequested()
        }
    }
}
