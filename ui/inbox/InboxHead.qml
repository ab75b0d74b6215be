import QtQuick
import Orvella.Design
import Orvella.Inbox

/// The page's title and its sections, with what a section has beside them.
Item {
    id: root

    required property InboxStore store
    default property alias content: aside.data

    height: 52

    OrvHeading {
        id: title
        x: Theme.pageSide
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: "Inbox"
    }

    InboxSections {
        x: title.x + title.width + 12
        anchors.verticalCenter: parent.verticalCenter
        store: root.store
    }

    Row {
        id: aside
        x: root.width - width - Theme.pageSide
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12
    }

    OrvDivider {
        y: parent.height - 1
        width: parent.width
    }
}
