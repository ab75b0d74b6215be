import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// What scrolls and is no list: by the keys that nobody in it takes, and to whatever gets the keyboard.
Flickable {
    id: root

    /// Tab stops at it, while there is something to scroll: for what may hold nothing else to stop at.
    property bool isStop: false
    /// Kept in view while its message is laid out, which takes a frame, until the person moves on.
    property Item followed: null
    /// For keys that come from beside it.
    readonly property ScrollKeys keys: ScrollKeys {
        target: root
        onScrolled: root.followed = null
    }

    readonly property Item focused: Window.activeFocusItem
    property Item lastFocused: null

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    activeFocusOnTab: isStop && contentHeight > height

    T.ScrollBar.vertical: OrvScrollBar {
        onPressedChanged: if (pressed) root.followed = null
    }

    Keys.onPressed: event => keys.take(event)

    onFocusedChanged: {
        // Who comes back to the window finds it as it was.
        if (!focused || focused === lastFocused)
            return;
        lastFocused = focused;
        followed = holds(focused) ? focused : null;
        // What a pointer presses must not move away under it.
        if (InputMode.keyboard)
            place();
    }
    onMovementStarted: followed = null
    // Nor what that unfolds: a button that goes away with it hands the keyboard on to the end.
    onContentHeightChanged: {
        if (InputMode.keyboard || followed !== focused || !(focused instanceof T.AbstractButton))
            place();
    }
    onHeightChanged: place()

    function holds(item: Item): bool {
        let inside = item;
        while (inside && inside !== contentItem) inside = inside.parent;
        return inside !== null;
    }

    function reveal(item: Item) {
        followed = holds(item) ? item : null;
        place();
    }

    /// What is said of the whole: not while a field is shown that is wrong, and only where it is urgent to somebody who
    /// is writing.
    function revealNotice(notice: Item, urgent: bool) {
        const showsWrong = followed instanceof FieldFrame && followed.error !== "" || followed instanceof FieldError;
        if (urgent ? !showsWrong : !holds(focused))
            reveal(notice);
    }

    function place() {
        if (!followed?.visible || height <= 0)
            return;
        const top = followed.mapToItem(contentItem, 0, 0).y;
        const most = Math.max(0, contentHeight - height);
        // Of what is taller than the view, the beginning.
        if (top - 40 < contentY || followed.height + 100 > height)
            contentY = Math.max(0, Math.min(most, top - 40));
        else if (top + followed.height + 60 > contentY + height)
            contentY = Math.min(most, top + followed.height + 60 - height);
    }

    // A notice is for once: whoever writes on is not led back to it.
    Connections {
        target: root.followed instanceof OrvNotice && root.holds(root.focused) ? root.focused : null
        ignoreUnknownSignals: true

        function onTextChanged() {
            root.followed = root.focused;
        }
    }

    FocusRing {
        parent: root
        visible: root.activeFocus && InputMode.keyboard
        inset: true
    }
}
