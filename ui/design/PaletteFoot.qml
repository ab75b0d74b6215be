import QtQuick

/// The command palette's last line: what the keys do, and how many results there are.
Item {
    id: root

    property string text: ""
    property bool hasMore: false
    property bool canGoBack: false

    height: 35

    Rectangle {
        anchors { fill: parent; margins: 1; topMargin: 0 }
        radius: 11
        color: Theme.bg

        Rectangle {
            width: parent.width
            height: 12
            color: Theme.bg
        }
    }

    Rectangle {
        width: root.width
        height: 1
        color: Theme.border
    }

    Row {
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        OrvKeyCap { text: "↑" }
        OrvKeyCap { text: "↓" }
        FootText { text: "Move"; rightPadding: 12 }
        OrvKeyCap { text: "↵" }
        FootText { text: "Open"; rightPadding: 12 }
        OrvKeyCap { visible: root.hasMore; text: "→" }
        FootText { visible: root.hasMore; text: "Actions"; rightPadding: 12 }
        OrvKeyCap { visible: root.canGoBack; text: "←" }
        FootText { visible: root.canGoBack; text: "Back" }
    }

    FootText {
        anchors { right: parent.right; rightMargin: 20; verticalCenter: parent.verticalCenter }
        text: root.text
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    component FootText: Text {
        height: 20
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        font: Theme.micro
        color: Theme.text2
    }
}
