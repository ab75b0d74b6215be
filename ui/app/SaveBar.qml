import QtQuick
import Orvella.Design

/// Stands at the foot of a form while something in it is unsaved.
Item {
    id: root

    property bool shown: false
    property string saveText: "Save"
    property bool saving: false
    property bool canSave: false
    property bool hasErrors: false

    signal saveRequested()
    signal discardRequested()

    visible: shown
    height: shown ? 56 : 0

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }

    OrvDivider {
        width: parent.width
    }

    Row {
        x: Theme.pageSide
        width: Math.min(640, parent.width - 2 * x)
        height: parent.height
        layoutDirection: Qt.RightToLeft
        spacing: 8

        OrvButton {
            id: save
            anchors.verticalCenter: parent.verticalCenter
            kind: "primary"
            text: root.saveText
            busy: root.saving
            enabled: root.canSave || root.saving
            onClicked: root.saveRequested()
        }

        OrvButton {
            id: discard
            anchors.verticalCenter: parent.verticalCenter
            text: "Discard"
            enabled: !root.saving
            onClicked: root.discardRequested()
        }

        Text {
            width: parent.width - save.width - discard.width - 16
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.saving ? "Saving…" : root.hasErrors ? "Some fields need another look" : "Unsaved changes"
            font: Theme.body
            color: root.hasErrors ? Theme.negative : Theme.text2
            elide: Text.ElideRight
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
