import QtQuick
import Orvella.Design

/// The button that opens a row's menu. The keyboard has Shift+F10 for it, so it is no stop of its own.
OrvCell {
    id: root

    required property OrvTableRow row
    property string name: ""

    OrvButton {
        id: more
        x: root.width - width
        anchors.verticalCenter: parent.verticalCenter
        kind: "ghost"
        size: "small"
        iconOnly: true
        iconName: "overflow-menu"
        text: "Actions for " + root.name
        focusPolicy: Qt.NoFocus
        activeFocusOnTab: false
        enabled: !root.row.busy
        onClicked: {
            const corner = mapToItem(root.row, 0, height + 4);
            root.row.table.menuRequested(root.row.key, root.row, corner.x, corner.y);
        }
    }
}
