import QtQuick
import Orvella.Design
import Orvella.App

/// The line under a table: how much it shows, and how fresh that is.
Item {
    id: root

    property string countText: ""
    property Resource resource: null
    /// Where the pages of a list did not all come, it goes on from here.
    readonly property PagedList broken: {
        const list = resource as PagedList;
        return list && list.moreFailed ? list : null;
    }

    implicitHeight: 36

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.border
    }

    Text {
        id: count
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

    Text {
        id: failure
        visible: root.broken !== null
        x: count.x + count.width + 12
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: "Couldn’t load more."
        font: Theme.small
        color: Theme.negative
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvButton {
        visible: root.broken !== null
        x: failure.x + failure.width + 4
        anchors.verticalCenter: parent.verticalCenter
        kind: "ghost"
        size: "small"
        text: "Retry"
        onClicked: root.broken.loadMore()
    }

    Freshness {
        anchors { right: parent.right; rightMargin: Theme.pageSide }
        height: parent.height
        loadedAt: root.resource !== null ? root.resource.loadedAt : new Date(NaN)
        offline: root.resource !== null && root.resource.state === Resource.Offline
    }
}
