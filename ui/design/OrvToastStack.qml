pragma ComponentBehavior: Bound
import QtQuick

/// The toasts at the window's bottom right, newest lowest. The model (roles `toastId`, `message`, `detail`, `tone`,
/// `actionLabel`) says how many there are and for how long.
FocusScope {
    id: root

    property alias model: list.model
    /// The pointer or the focus is on a toast: time stands still for them.
    readonly property bool held: (hover.hovered || activeFocus) && repeater.count > 0
    property Item cameFrom: null

    signal actionRequested(var id)
    signal closeRequested(var id)

    width: 372
    height: list.height

    Accessible.role: Accessible.Grouping
    Accessible.name: "Messages"

    HoverHandler { id: hover }

    /// Moves the focus to the newest toast (F6), or back to where it came from.
    function toggleFocus() {
        if (activeFocus) {
            leave();
        } else if (repeater.count > 0) {
            cameFrom = Window.window ? Window.window.activeFocusItem : null;
            repeater.itemAt(repeater.count - 1).forceActiveFocus(Qt.ShortcutFocusReason);
        }
    }

    function leave() {
        if (cameFrom && cameFrom.visible)
            cameFrom.forceActiveFocus(Qt.ShortcutFocusReason);
        else
            focus = false;
        cameFrom = null;
    }

    function step(from: int, by: int) {
        const item = repeater.itemAt(from + by);
        if (item)
            item.forceActiveFocus(Qt.TabFocusReason);
    }

    Column {
        id: list

        property alias model: repeater.model

        width: root.width
        spacing: 8

        add: Transition {
            NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.toastInDuration; easing.type: Easing.OutCubic }
        }
        move: Transition {
            NumberAnimation { property: "y"; duration: Theme.toastOutDuration; easing.type: Easing.OutCubic }
        }

        Repeater {
            id: repeater

            // The focus of a toast that goes stays on the stack, where no key does anything.
            onItemRemoved: {
                if (!root.activeFocus)
                    return;
                if (count > 0)
                    itemAt(count - 1).forceActiveFocus(Qt.ShortcutFocusReason);
                else
                    root.leave();
            }

            FocusScope {
                id: entry

                required property var model
                required property int index

                width: root.width
                height: toast.height

                Keys.onUpPressed: root.step(index, -1)
                Keys.onDownPressed: root.step(index, 1)

                OrvToast {
                    id: toast
                    focus: true
                    message: entry.model.message
                    detail: entry.model.detail ?? ""
                    tone: entry.model.tone
                    actionLabel: entry.model.actionLabel ?? ""
                    // An action's name tells that the message can still be answered (F6).
                    readonly property string said: (isError ? "Error: " : "") + Accessible.name
                        + (actionLabel === "" ? "" : " " + actionLabel)
                    onSaidChanged: Announcer.say(said, "message " + entry.model.toastId)
                    onActionRequested: root.actionRequested(entry.model.toastId)
                    onCloseRequested: root.closeRequested(entry.model.toastId)
                }
            }
        }
    }
}
