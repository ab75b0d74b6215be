import QtQuick

/// A form that scrolls: a column of fields and sections. What the keyboard reaches comes into view, and so does the first
/// field that is wrong.
FocusScope {
    id: root

    default property alias fields: column.data
    /// Who may not change the fields can still scroll them.
    property alias editable: column.enabled
    /// Tab stops at it where there is too much for the window: for one that holds nothing else to stop at.
    property alias isStop: scroll.isStop
    property real maximumWidth: 640
    readonly property alias contentY: scroll.contentY
    readonly property alias followed: scroll.followed

    Keys.onPressed: event => scroll.keys.take(event)

    function reveal(item: Item) {
        scroll.reveal(item);
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

    ScrollPane {
        id: scroll
        anchors.fill: parent
        contentHeight: column.height + 48
        isStop: !column.enabled

        Column {
            id: column
            x: Theme.pageSide
            y: 24
            width: Math.min(root.maximumWidth, scroll.width - 2 * x)
            spacing: 24
        }
    }
}
