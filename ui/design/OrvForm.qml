import QtQuick
import QtQuick.Templates as T

/// A form that scrolls: a column of fields and sections. What the keyboard reaches comes into view, and so does the first
/// field that is wrong.
FocusScope {
    id: root

    default property alias fields: column.data
    /// Who may not change the fields can still scroll them.
    property alias editable: column.enabled
    property real maximumWidth: 640
    readonly property alias contentY: scroll.contentY

    /// Kept in view while its message is laid out, which takes a frame, until the person moves on.
    property Item followed: null
    readonly property Item focused: Window.activeFocusItem

    onFocusedChanged: reveal(focused)

    function reveal(item: Item) {
        let inside = item;
        while (inside && inside !== column) inside = inside.parent;
        followed = inside ? item : null;
        place();
    }

    function place() {
        if (!followed) return;
        const top = followed.mapToItem(column, 0, 0).y + column.y;
        const most = Math.max(0, scroll.contentHeight - scroll.height);
        // Of what is taller than the view, the beginning.
        if (top - 40 < scroll.contentY || followed.height + 100 > scroll.height)
            scroll.contentY = Math.max(0, Math.min(most, top - 40));
        else if (top + followed.height + 60 > scroll.contentY + scroll.height)
            scroll.contentY = Math.min(most, top + followed.height + 60 - scroll.height);
    }

    /// An error above or below what is in view would leave the button that was pressed looking dead.
    function showWrong(section: Item) {
        const wrong = firstWrong(section ?? column);
        if (!wrong) return;
        if (wrong instanceof FieldFrame) wrong.forceActiveFocus(Qt.OtherFocusReason);
        reveal(wrong);
    }

    function firstWrong(item: Item): Item {
        // Not iterable as a sequence, only by number.
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            const isWrong = child instanceof FieldFrame ? child.error !== ""
                                                        : child instanceof FieldError && child.text !== "";
            const wrong = isWrong ? child : firstWrong(child);
            if (wrong) return wrong;
        }
        return null;
    }

    Flickable {
        id: scroll
        anchors.fill: parent
        contentHeight: column.height + 48
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: OrvScrollBar {}

        onMovementStarted: root.followed = null
        onContentHeightChanged: root.place()
        onHeightChanged: root.place()

        Column {
            id: column
            x: Theme.pageSide
            y: 24
            width: Math.min(root.maximumWidth, scroll.width - 2 * x)
            spacing: 24
        }
    }
}
