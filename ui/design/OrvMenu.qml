pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// A menu of OrvMenuItem and OrvMenuSeparator, opened with openAt() by a control or with popup() at the pointer.
/// A list keeps one, made when it is first needed.
T.Menu {
    id: root

    readonly property FocusReturn focusReturn: FocusReturn {}
    readonly property TypeAhead typeAhead: TypeAhead {}
    /// As many entries are shown at once, the others by scrolling; 0 for as many as the window has room for.
    property int rows: 0
    property real room: Infinity

    width: Math.min(320, Math.max(200, contentItem.implicitWidth + leftPadding + rightPadding))
    implicitHeight: Math.min(contentHeight, rows > 0 && count > 0 ? rows * itemAt(0).implicitHeight : contentHeight)
        + topPadding + bottomPadding
    height: Math.min(implicitHeight, room)
    padding: 4
    margins: 8
    overlap: 4
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside | T.Popup.CloseOnReleaseOutsideParent

    delegate: OrvMenuItem {}

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }

    onAboutToShow: {
        typeAhead.typed = "";
        focusReturn.remember(parent);
    }
    onAboutToHide: focusReturn.giveBack()

    /// Opens under `item`, at its right edge when `alignRight`, above it where there is more room. Never over it.
    function openAt(item: Item, alignRight: bool) {
        openOn(item, alignRight, nextEnabled(-1, 1));
    }

    /// The same, with the entry in the middle that holds.
    function openOn(item: Item, alignRight: bool, index: int) {
        const window = item.Window.window;
        const corner = item.mapToItem(null, 0, 0);
        const over = corner.y - 4 - margins;
        const under = window.height - corner.y - item.height - 4 - margins;
        const below = implicitHeight <= under || under >= over;
        parent = item;
        room = below ? under : over;
        popup(item, alignRight ? item.width - width : 0, below ? item.height + 4 : -height - 4);
        choose(usable(index) ? index : nextEnabled(-1, 1));
        list.forceLayout();
        list.positionViewAtIndex(currentIndex, ListView.Center);
    }

    /// Opens at a point of `item`, where the pointer is or a row's button.
    function popupIn(item: Item, x: real, y: real) {
        room = Infinity;
        popup(item, x, y);
        choose(nextEnabled(-1, 1));
    }

    /// The entry that what is typed names, where its beginning does not tell; for others to know better.
    function named(): int {
        return -1;
    }

    function usable(index: int): bool {
        const item = itemAt(index);
        return item instanceof T.MenuItem && item.visible && item.enabled;
    }

    function nextEnabled(from: int, by: int): int {
        for (let i = 1; i <= count; ++i) {
            const index = (from + by * i + count * 2) % count;
            if (usable(index))
                return index;
        }
        return -1;
    }

    /// To the entry that begins with what is typed. More than one letter may still mean the current one.
    function jump(letter: string) {
        const typed = typeAhead.add(letter);
        const meant = named();
        if (meant >= 0) {
            choose(meant);
            return;
        }
        for (let i = typed.length > 1 ? 0 : 1; i <= count; ++i) {
            const index = (Math.max(currentIndex, -1) + i + count) % count;
            if (usable(index) && itemAt(index).text.toLowerCase().startsWith(typed)) {
                choose(index);
                return;
            }
        }
    }

    function choose(index: int) {
        currentIndex = index;
        if (index < 0)
            return;
        itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        list.positionViewAtIndex(index, ListView.Contain);
    }

    contentItem: ListView {
        id: list
        implicitWidth: {
            let widest = 0;
            for (let i = 0; i < root.count; ++i)
                widest = Math.max(widest, root.itemAt(i).implicitWidth);
            return widest;
        }
        implicitHeight: contentHeight
        model: root.contentModel
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive
        keyNavigationEnabled: false

        T.ScrollBar.vertical: OrvScrollBar {}

        Keys.onPressed: event => {
            event.accepted = true;
            if (event.key === Qt.Key_Down)
                root.choose(root.nextEnabled(root.currentIndex, 1));
            else if (event.key === Qt.Key_Up)
                root.choose(root.nextEnabled(root.currentIndex < 0 ? 0 : root.currentIndex, -1));
            else if (event.key === Qt.Key_Home)
                root.choose(root.nextEnabled(-1, 1));
            else if (event.key === Qt.Key_End)
                root.choose(root.nextEnabled(0, -1));
            else if (root.typeAhead.takes(event.text, event.modifiers))
                root.jump(event.text);
            else
                event.accepted = false;
        }
    }

    background: OrvFloat {
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.title
    }
}
