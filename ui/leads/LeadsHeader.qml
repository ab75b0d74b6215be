import QtQuick
import Orvella.Design
import Orvella.Leads

/// The top of the leads' page: its parts beside the title, and what can be done there at the right.
Item {
    id: root

    required property LeadsStore store
    default property alias actions: actionRow.data

    implicitHeight: 58

    OrvHeading {
        id: title
        x: Theme.pageSide
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: "Leads"
    }

    OrvSegments {
        anchors.verticalCenter: parent.verticalCenter
        x: title.x + title.width + 12
        height: Theme.controlHeightSmall
        label: "What is shown"
        options: root.store.tabs
        current: root.store.tab
        onChosen: key => root.store.tab = key
    }

    Row {
        id: actionRow
        anchors.verticalCenter: parent.verticalCenter
        x: root.width - width - Theme.pageSide
        spacing: 8
    }

    Rectangle {
        y: root.height - 1
        width: root.width
        height: 1
        color: Theme.border
    }
}
