import QtQuick
import Orvella.Design

/// A value of a filter with its tick and how many leads carry it. Drawn lightly: a rail shows hundreds.
Item {
    id: root

    required property string label
    required property string count
    property string hint: ""
    property bool ticked: false
    property bool single: false
    property bool current: false

    signal toggled()

    height: hint === "" ? 26 : 42

    Accessible.role: single ? Accessible.RadioButton : Accessible.CheckBox
    Accessible.name: label + (count === "" ? "" : ", " + count)
    Accessible.description: hint
    Accessible.checkable: true
    Accessible.checked: ticked
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: toggled()
    Accessible.onToggleAction: toggled()

    TableTick {
        y: 5
        checked: root.ticked
        radius: root.single ? 8 : Theme.radiusTag

        FocusRing {
            visible: root.current && InputMode.keyboard
            innerRadius: Theme.radiusTag
        }
    }

    Text {
        x: 24
        width: parent.width - x - countText.implicitWidth - 8
        height: 26
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.label
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        visible: root.hint !== ""
        x: 24
        y: 23
        width: parent.width - x
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.hint
        font: Theme.microText
        color: Theme.text3
        Accessible.ignored: true
    }

    Text {
        id: countText
        x: parent.width - width
        height: 26
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.count
        font: Theme.microText
        color: Theme.text3
        Accessible.ignored: true
    }

    TapHandler {
        onTapped: root.toggled()
    }
}
