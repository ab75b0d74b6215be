import QtQuick
import Orvella.Design

/// The wait between two emails of the timeline, where another one can be put in.
Item {
    id: root

    required property string text
    property bool canWrite: true
    /// How far above the line of the timeline begins.
    property real lineAbove: 0

    signal insertRequested()

    Rectangle {
        x: 10
        y: -root.lineAbove
        width: 1
        height: parent.height - y
        color: Theme.borderField
    }

    OrvIcon {
        x: 28
        anchors.verticalCenter: parent.verticalCenter
        size: 12
        name: "chronometer"
        color: Theme.text3
    }

    Text {
        x: 47
        width: parent.width - x - 30
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.text
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    HoverHandler {
        id: hover
    }

    // The keyboard has Insert and the menu of an email.
    Loader {
        active: root.canWrite && hover.hovered
        x: parent.width - width
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: OrvButton {
            kind: "ghost"
            size: "small"
            iconOnly: true
            iconName: "list-add"
            focusPolicy: Qt.NoFocus
            text: "Insert an email here"
            onClicked: root.insertRequested()
        }
    }
}
