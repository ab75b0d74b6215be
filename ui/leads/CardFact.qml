import QtQuick
import Orvella.Design

/// A label and its value. One without a value is hidden until the lead is unlocked.
Item {
    id: root

    required property string label
    required property string value
    property bool copied: false
    property bool link: false

    signal copyRequested()
    signal linkOpened()

    height: 24

    Accessible.role: Accessible.StaticText
    Accessible.name: label + ", " + (value === "" ? "hidden until unlocked" : value)

    Text {
        height: root.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.label
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    HiddenText {
        visible: root.value === ""
        x: 116
        height: root.height
        Accessible.ignored: true
    }

    Text {
        id: valueText
        visible: root.value !== "" && !root.link
        x: 116
        width: Math.min(implicitWidth, root.width - x - (copy.visible ? copy.width + 8 : 0))
        height: root.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.value
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true

        OrvTooltip {
            text: valueText.truncated ? root.value : ""
        }
    }

    OrvLink {
        visible: root.link && root.value !== ""
        x: 116
        width: Math.min(implicitWidth, root.width - x)
        height: root.height
        text: root.value
        onClicked: root.linkOpened()
    }

    OrvLink {
        id: copy
        visible: root.copied
        x: valueText.x + valueText.width + 8
        height: root.height
        text: "Copy email"
        onClicked: root.copyRequested()
    }
}
