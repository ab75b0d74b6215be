import QtQuick
import Orvella.Design

/// What a page or pane shows in place of content: nothing there, nothing found, an error, no connection. One
/// action, and where it may not help, another way on.
Item {
    id: root

    property string iconName: ""
    property string title: ""
    property string text: ""
    property string actionText: ""
    property string otherText: ""
    property bool busy: false

    signal actionRequested()
    signal otherRequested()

    Accessible.role: Accessible.Grouping
    Accessible.name: text === "" ? title : title + ", " + text

    // Between two states it may be there for a moment that nobody sees.
    Timer {
        interval: 400
        running: root.visible && root.title !== ""
        onTriggered: Announcer.say(root.Accessible.name, "state")
    }

    Column {
        id: column
        // Centred in the upper two thirds: the eye looks for content there.
        y: Math.max(16, (root.height - height) * 0.4)
        x: (root.width - width) / 2
        width: Math.min(420, root.width - 48)
        spacing: 8

        OrvIcon {
            visible: root.iconName !== ""
            anchors.horizontalCenter: parent.horizontalCenter
            size: 24
            name: root.iconName
            color: Theme.text3
        }

        Text {
            width: parent.width
            topPadding: 4
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.title
            font: Theme.emptyTitle
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            visible: text !== ""
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            lineHeightMode: Text.FixedHeight
            lineHeight: 20
            textFormat: Text.PlainText
            text: root.text
            font: Theme.body
            color: Theme.text2
            Accessible.ignored: true
        }

        Item {
            visible: root.actionText !== ""
            width: parent.width
            height: action.height + 8

            Row {
                id: action
                y: 8
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 8

                OrvButton {
                    text: root.actionText
                    busy: root.busy
                    onClicked: root.actionRequested()
                }

                OrvButton {
                    visible: root.otherText !== ""
                    kind: "ghost"
                    text: root.otherText
                    onClicked: root.otherRequested()
                }
            }
        }
    }
}
