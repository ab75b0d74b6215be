import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A word that acts, without a button's weight.
T.AbstractButton {
    id: root

    /// On the way to somewhere rather than the thing to do.
    property bool quiet: false
    /// Where it is too long for one it breaks anywhere, into as many as this.
    property int mostLines: 1
    readonly property font words: quiet ? Theme.body : Theme.smallStrong

    implicitWidth: Math.ceil(label.implicitWidth)
    implicitHeight: Math.max(26, label.implicitHeight + 8)
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    // Off it is told by its colour alone: a countdown is read while it is off.
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (root.enabled) root.clicked()
    Keys.onReturnPressed: event => root.pressBy(event)
    Keys.onEnterPressed: event => root.pressBy(event)
    Keys.onSpacePressed: event => event.accepted = event.isAutoRepeat
    Keys.onReleased: event => event.accepted = event.key === Qt.Key_Space && event.isAutoRepeat

    function pressBy(event) {
        if (!event.isAutoRepeat) clicked();
    }

    contentItem: Text {
        id: label
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        wrapMode: root.mostLines > 1 ? Text.WrapAnywhere : Text.NoWrap
        maximumLineCount: root.mostLines
        elide: root.mostLines > 1 ? Text.ElideRight : Text.ElideNone
        text: root.text
        font.family: root.words.family
        font.pixelSize: root.words.pixelSize
        font.weight: root.words.weight
        font.underline: root.hovered && root.enabled
        color: !root.enabled ? Theme.text3 : root.quiet ? Theme.text2 : Theme.accentText
    }
    background: Item {
        FocusRing { visible: root.activeFocus && InputMode.keyboard; innerRadius: 2 }
    }
}
