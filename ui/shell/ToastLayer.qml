import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App

/// The window's messages, above everything, dialogs included.
Item {
    id: root

    required property Toasts toasts
    readonly property bool hasFocus: stack.activeFocus

    parent: T.Overlay.overlay
    anchors.fill: parent
    z: 1000

    function toggleFocus() {
        stack.toggleFocus();
    }

    OrvVoice {}

    OrvToastStack {
        id: stack
        // Above the foot line of a list.
        anchors { right: parent.right; bottom: parent.bottom; rightMargin: 20; bottomMargin: 44 }
        model: root.toasts
        onHeldChanged: root.toasts.hold(held)
        onActionRequested: id => root.toasts.act(id)
        onCloseRequested: id => root.toasts.dismiss(id)
    }
}
