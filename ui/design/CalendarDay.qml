import QtQuick
import Orvella.Design

/// A day of an OrvCalendar.
Pressable {
    id: root

    required property string day
    property bool chosen: false
    property bool today: false
    /// Of the month before or after the one shown.
    property bool outside: false

    width: 34
    height: 32
    text: DateText.spoken(day) + (today ? ", today" : "")
    opacity: enabled ? 1 : 0.4

    Accessible.role: Accessible.Cell
    Accessible.focusable: enabled
    Accessible.focused: activeFocus
    Accessible.selectable: true
    Accessible.selected: chosen

    Rectangle {
        anchors { fill: parent; leftMargin: 2; rightMargin: 2; topMargin: 1; bottomMargin: 1 }
        radius: Theme.radiusControl
        color: root.chosen ? Theme.accent : root.hovered && root.enabled ? Theme.hover : "transparent"
        border { width: root.today && !root.chosen ? 1 : 0; color: Theme.accentText }

        FocusRing { visible: root.activeFocus && InputMode.keyboard; anchors.margins: -2; radius: Theme.radiusControl + 2 }
    }

    Text {
        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: DateText.numberOf(root.day)
        font: root.today ? Theme.bodyBold : Theme.body
        color: root.chosen ? Theme.inkOnAccent : root.outside ? Theme.text3 : Theme.text
        Accessible.ignored: true
    }
}
