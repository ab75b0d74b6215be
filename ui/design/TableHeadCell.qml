import QtQuick
import Orvella.Design

/// A column's title in the head of an OrvTable, to be pressed or carried elsewhere, with the edge that resizes it.
Item {
    id: root

    required property OrvColumn column
    property bool sorted: false
    property bool descending: true
    property bool carried: false
    property bool ringShown: false
    readonly property bool rightAligned: column.alignment === Text.AlignRight
    readonly property real arrowWidth: sorted ? 16 : 0

    /// The title was pressed.
    signal pressed()
    /// The person wants this width.
    signal dragged(real width)
    signal fitRequested()
    /// The title is under the pointer at this place of the head.
    signal carriedTo(real x)
    signal dropped()
    signal menuRequested()

    width: column.width
    visible: column.shown
    opacity: carried ? 0.6 : 1

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
        y: 1
        width: root.width
        height: root.height - 2
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

        property real startX: 0
        property bool carries: false

        anchors { fill: parent; leftMargin: -4; rightMargin: -4 }
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            carries = false;
            startX = mouse.x;
            if (mouse.button === Qt.RightButton)
                root.menuRequested();
        }
        onPositionChanged: mouse => {
            if (!(pressedButtons & Qt.LeftButton) || root.column.fixed)
                return;
            carries = carries || Math.abs(mouse.x - startX) > 8;
            if (carries)
                root.carriedTo(mapToItem(root.parent, mouse.x, 0).x);
        }
        onReleased: if (carries) root.dropped()
        onCanceled: if (carries) root.dropped()
        onClicked: mouse => {
            if (!carries && mouse.button === Qt.LeftButton)
                root.pressed();
        }
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
        onDoubleClicked: root.fitRequested()

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
