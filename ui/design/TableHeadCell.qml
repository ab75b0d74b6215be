import QtQuick
import Orvella.Design

/// A column's title in the head of an OrvTable, with the edge that resizes it.
Item {
    id: root

    required property OrvColumn column
    property bool sorted: false
    property bool descending: true
    property bool ringShown: false
    readonly property bool rightAligned: column.alignment === Text.AlignRight
    readonly property real arrowWidth: sorted ? 16 : 0

    /// The title was pressed.
    signal pressed()
    /// The person wants this width.
    signal dragged(real width)

    width: column.width
    visible: column.visible

    Accessible.role: Accessible.ColumnHeader
    Accessible.name: column.title
    Accessible.description: sorted ? (descending ? "sorted, highest first" : "sorted, lowest first")
                                   : column.sortable ? "not sorted" : ""
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: pressed()

    Rectangle {
        visible: root.column.frozen
        z: -1
        width: root.width
        height: root.height
        color: Theme.bg
    }

    Text {
        id: title
        x: root.rightAligned ? root.width - width - root.arrowWidth : 0
        width: Math.min(implicitWidth, root.width - root.arrowWidth)
        height: root.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        visible: !root.column.titleHidden
        text: root.column.title
        font: Theme.smallStrong
        color: root.sorted || area.containsMouse && root.column.sortable ? Theme.text : Theme.text3
        Accessible.ignored: true
    }

    OrvIcon {
        visible: root.sorted
        x: title.x + title.width + 4
        anchors.verticalCenter: parent.verticalCenter
        size: 12
        name: root.descending ? "go-down" : "arrow-up"
        color: Theme.text
    }

    MouseArea {
        id: area
        anchors { fill: parent; leftMargin: -4; rightMargin: -4 }
        hoverEnabled: true
        onClicked: root.pressed()
    }

    Rectangle {
        visible: root.ringShown
        anchors { fill: parent; leftMargin: -6; rightMargin: -6; topMargin: 3; bottomMargin: 4 }
        color: "transparent"
        radius: Theme.radiusTag
        border { width: 2; color: Theme.focus }
    }

    MouseArea {
        id: edge

        property real startWidth: 0

        visible: root.column.resizable
        x: root.width + 4
        width: 8
        height: root.height
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.SplitHCursor
        onPressed: startWidth = root.column.width - mapToItem(null, mouseX, 0).x
        onPositionChanged: {
            if (pressed)
                root.dragged(startWidth + mapToItem(null, mouseX, 0).x);
        }

        Rectangle {
            visible: edge.containsMouse || edge.pressed
            x: 3
            y: 8
            width: 2
            height: root.height - 16
            color: Theme.borderField
        }
    }
}
