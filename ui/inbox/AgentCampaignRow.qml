import QtQuick
import Orvella.Design

/// A campaign that a click moves into the other list.
Item {
    id: root

    required property string id
    required property string name
    required property string hint
    required property bool busy
    property bool active: false
    property bool current: false
    /// Empty where it cannot be moved.
    property string verb: ""

    signal moved()

    function press() {
        if (verb !== "" && !busy)
            moved();
    }

    height: 36
    opacity: busy ? 0.6 : 1
    Accessible.role: Accessible.Button
    Accessible.name: name + (verb !== "" ? ", " + verb : hint !== "" ? ", " + hint : "") + (busy ? ", busy" : "")
    Accessible.focusable: true
    Accessible.focused: current
    Accessible.onPressAction: press()

    Rectangle {
        anchors.fill: parent
        visible: root.verb !== "" && (hover.hovered || root.current)
        color: Theme.hover
    }

    Rectangle {
        x: 8
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: root.active ? Theme.positive : Theme.neutral
    }

    Text {
        x: 24
        width: (said.visible ? said.x - 8 : parent.width - 8) - x
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.name
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        id: said
        visible: text !== ""
        x: parent.width - width - 8
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.hint !== "" ? root.hint : hover.hovered || root.current ? root.verb : ""
        font: root.hint !== "" ? Theme.small : Theme.smallStrong
        color: root.hint !== "" ? Theme.text2 : Theme.accentText
        Accessible.ignored: true
    }

    OrvDivider {
        y: parent.height - 1
        width: parent.width
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: root.press()
    }
}
