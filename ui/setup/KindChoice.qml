import QtQuick
import Orvella.Design

/// One of several kinds, with a sentence about it.
Pressable {
    id: root

    property string detail: ""
    property bool picked: false
    /// Where Tab enters the choices.
    property bool isEntry: false

    signal entered()
    signal stepped(int by)

    implicitHeight: words.height + 24
    // Whoever stands on it is not put off it by another that was picked.
    activeFocusOnTab: isEntry || activeFocus
    Accessible.role: Accessible.RadioButton
    Accessible.description: detail
    Accessible.checkable: true
    Accessible.checked: picked
    Accessible.focusable: true
    Keys.onUpPressed: stepped(-1)
    Keys.onDownPressed: stepped(1)
    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: entered()
    Keys.onEnterPressed: entered()

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: root.picked ? Theme.selected : root.hovered ? Theme.hover : Theme.surface
        border { width: 1; color: root.picked ? Theme.accentText : Theme.borderField }

        FocusRing { visible: root.activeFocus && InputMode.keyboard; innerRadius: Theme.radiusCard }
    }

    Rectangle {
        x: 14
        y: 14
        width: 16
        height: 16
        radius: 8
        color: Theme.surface
        border { width: root.picked ? 5 : 1.5; color: root.picked ? Theme.accent : Theme.borderControl }
    }

    Column {
        id: words
        x: 42
        y: 12
        width: root.width - 56
        spacing: 2

        Text {
            width: parent.width
            textFormat: Text.PlainText
            text: root.text
            font: Theme.bodyStrong
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.detail
            font: Theme.body
            color: Theme.text2
            Accessible.ignored: true
        }
    }
}
