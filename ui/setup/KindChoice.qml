import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// One of several kinds, with a sentence about it.
T.AbstractButton {
    id: root

    property string title: ""
    property string detail: ""
    property bool picked: false
    /// Where Tab enters the choices.
    property bool isEntry: false

    signal chosen()
    signal entered()
    signal stepped(int by)

    implicitHeight: words.height + 24
    focusPolicy: isEntry ? Qt.StrongFocus : Qt.ClickFocus
    text: title
    Accessible.role: Accessible.RadioButton
    Accessible.name: title
    Accessible.description: detail
    Accessible.checkable: true
    Accessible.checked: picked
    Accessible.onPressAction: clicked()
    Keys.onUpPressed: stepped(-1)
    Keys.onDownPressed: stepped(1)
    Keys.onReturnPressed: entered()
    Keys.onEnterPressed: entered()
    onClicked: chosen()

    background: Rectangle {
        radius: Theme.radiusCard
        color: root.picked ? Theme.selected : root.hovered ? Theme.hover : Theme.surface
        border { width: 1; color: root.picked ? Theme.accentText : Theme.borderField }

        FocusRing { visible: root.visualFocus; innerRadius: Theme.radiusCard }
    }

    indicator: Rectangle {
        x: 14
        y: 14
        width: 16
        height: 16
        radius: 8
        color: Theme.surface
        border { width: root.picked ? 5 : 1.5; color: root.picked ? Theme.accent : Theme.borderControl }
    }

    contentItem: Item {
        Column {
            id: words
            x: 42
            y: 12
            width: root.width - 56
            spacing: 2

            Text {
                width: parent.width
                textFormat: Text.PlainText
                text: root.title
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
}
