import QtQuick
import QtQuick.Templates as T

/// A word that acts, without a button's weight.
T.AbstractButton {
    id: root

    implicitWidth: label.implicitWidth
    implicitHeight: 26
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    opacity: enabled ? 1 : 0.6

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (root.enabled) root.clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Text {
        id: label
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.text
        font.family: Theme.smallStrong.family
        font.pixelSize: Theme.smallStrong.pixelSize
        font.weight: Theme.smallStrong.weight
        font.underline: root.hovered && root.enabled
        color: root.enabled ? Theme.accentText : Theme.text3
    }
    background: Item {
        FocusRing { visible: root.visualFocus; innerRadius: 2 }
    }
}
