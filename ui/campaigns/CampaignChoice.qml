import QtQuick
import Orvella.Design

/// A campaign in a list of which one is picked.
Rectangle {
    id: root

    required property int index
    required property choice modelData
    property bool chosen: false
    property bool current: false

    signal picked()

    height: 44
    radius: Theme.radiusControl
    color: chosen ? Theme.selected : area.containsMouse ? Theme.hover : "transparent"

    Accessible.role: Accessible.RadioButton
    Accessible.name: modelData.label + ", " + modelData.detail
    Accessible.checkable: true
    Accessible.checked: chosen
    Accessible.focusable: true
    Accessible.focused: current
    Accessible.onPressAction: root.picked()

    FocusRing {
        visible: root.current
    }

    Text {
        x: 12
        y: 4
        width: parent.width - 48
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.modelData.label
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        x: 12
        y: 24
        width: parent.width - 48
        height: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.modelData.detail
        font: Theme.small
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvIcon {
        visible: root.chosen
        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        name: "checkmark"
        size: 16
        color: Theme.accentText
    }

    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.picked()
    }
}
