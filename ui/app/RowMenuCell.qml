import QtQuick
import Orvella.Design

/// The button that opens a row's menu. The keyboard has Shift+F10 for it, so it is no stop of its own, and a whole
/// button for each row would be half of what a row costs.
OrvCell {
    id: root

    required property OrvTableRow row
    property string name: ""

    Rectangle {
        id: more
        x: root.width - width
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.controlHeightSmall
        height: width
        radius: Theme.radiusControl
        color: area.pressed ? Theme.pressed : area.containsMouse ? Theme.hover : "transparent"

        Accessible.role: Accessible.Button
        Accessible.name: "Actions for " + root.name
        Accessible.onPressAction: more.open()

        function open() {
            if (root.row.busy)
                return;
            const corner = mapToItem(root.row, 0, height + 4);
            root.row.table.menuRequested(root.row.key, root.row, corner.x, corner.y);
        }

        OrvIcon {
            anchors.centerIn: parent
            name: "overflow-menu"
            size: 14
            color: root.row.lively || area.containsMouse ? Theme.text : Theme.text2
        }

        MouseArea {
            id: area
            anchors.fill: parent
            hoverEnabled: true
            onClicked: more.open()
        }
    }
}
