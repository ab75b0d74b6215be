import QtQuick
import Orvella.Design
import Orvella.App

/// Restores a row of an archive. The row's menu stands behind it, in the same column.
OrvCell {
    id: root

    required property OrvTableRow row
    required property Store actor
    property string name: ""

    OrvButton {
        x: root.width - width - 34
        anchors.verticalCenter: parent.verticalCenter
        size: "small"
        text: "Restore"
        Accessible.name: "Restore " + root.name
        iconName: "edit-undo"
        focusPolicy: Qt.NoFocus
        activeFocusOnTab: false
        enabled: root.actor.canWrite
        busy: root.row.busy
        onClicked: root.actor.act("restore", root.row.key)
    }
}
