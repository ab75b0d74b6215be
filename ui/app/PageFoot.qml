import QtQuick
import Orvella.Design
import Orvella.App

/// The line under a table: how much it shows, and how fresh that is.
Item {
    id: root

    property string countText: ""
    property Resource resource: null

    implicitHeight: 36

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.border
    }

    Text {
        x: Theme.pageSide
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.countText
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Freshness {
        anchors { right: parent.right; rightMargin: Theme.pageSide }
        height: parent.height
        loadedAt: root.resource !== null ? root.resource.loadedAt : undefined
    }
}
