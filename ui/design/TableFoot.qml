import QtQuick

/// What stands under the last row of a list while there are more on the service.
Item {
    id: root

    property bool loading: false
    property bool failed: false
    readonly property bool shown: failed || loading

    signal retryRequested()

    width: parent ? parent.width : 0
    height: shown ? 44 : 0
    visible: shown

    Row {
        anchors.centerIn: parent
        spacing: 8

        Text {
            anchors.verticalCenter: parent.verticalCenter
            textFormat: Text.PlainText
            text: root.failed ? "Couldn’t load more." : "Loading…"
            font: Theme.body
            color: root.failed ? Theme.negative : Theme.text3
        }

        OrvButton {
            visible: root.failed
            anchors.verticalCenter: parent.verticalCenter
            kind: "ghost"
            size: "small"
            text: "Retry"
            onClicked: root.retryRequested()
        }
    }
}
