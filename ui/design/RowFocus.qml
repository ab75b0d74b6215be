import QtQuick
import Orvella.Design

/// For a list whose rows hold controls: the row whose control the keyboard has comes into view, so that the next one is
/// made and Tab finds it there.
QtObject {
    id: root

    required property ListView target

    readonly property Item focused: target.Window.activeFocusItem
    property Item lastFocused: null

    /// It has scrolled.
    signal moved()

    onFocusedChanged: {
        // Who comes back to the window finds it as it was.
        if (!focused || focused === lastFocused)
            return;
        lastFocused = focused;
        if (InputMode.keyboard)
            follow();
        settle();
    }

    function settle() {
        RowOrder.settle(target.contentItem);
    }

    function follow() {
        let row = focused;
        while (row && row.parent !== target.contentItem) row = row.parent;
        if (!row)
            return;
        // Of what is taller than the view, the control.
        const shown = row.height < target.height ? row : focused;
        const top = shown.mapToItem(target.contentItem, 0, 0).y;
        // A piece of the neighbour, too.
        const room = Math.max(0, Math.min(40, (target.height - shown.height) / 2));
        const before = target.contentY;
        const last = target.originY + Math.max(0, target.contentHeight + target.bottomMargin - target.height);
        if (top - room < before)
            target.contentY = Math.max(target.originY, top - room);
        else if (top + shown.height + room > before + target.height)
            target.contentY = Math.min(last, top + shown.height + room - target.height);
        if (target.contentY !== before)
            moved();
    }

    readonly property Connections made: Connections {
        target: root.target.contentItem

        function onChildrenChanged() {
            root.later.restart();
        }
    }

    // Where they stand is known by then.
    readonly property Timer later: Timer {
        interval: 0
        onTriggered: root.settle()
    }
}
