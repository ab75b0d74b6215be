pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// A menu of OrvMenuItem and OrvMenuSeparator, opened with openAt() by a control or with popup() at the pointer.
/// A list keeps one, made when it is first needed.
T.Menu {
    id: root

    readonly property FocusReturn focusReturn: FocusReturn {}

    width: Math.min(320, Math.max(200, contentItem.implicitWidth + leftPadding + rightPadding))
    implicitHeight: contentHeight + topPadding + bottomPadding
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
        focusReturn.remember(parent);
    }
    onAboutToHide: focusReturn.giveBack()

    /// Opens under `item`, at its right edge when `alignRight`, above it where there is no room below.
    function openAt(item: Item, alignRight: bool) {
        const window = item.Window.window;
        const corner = item.mapToItem(null, 0, 0);
        const below = corner.y + item.height + 4 + implicitHeight + 8 <= window.height;
        parent = item;
        const y = below ? item.height + 4 : -implicitHeight - 4;
        popup(item, alignRight ? item.width - width : 0, y);
        choose(nextEnabled(-1, 1));
    }

    /// Opens at a point of `item`, where the pointer is or a row's button.
    function popupIn(item: Item, x: real, y: real) {
        popup(item, x, y);
        choose(nextEnabled(-1, 1));
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

    /// The next entry after the current one that begins with `letter`.
    function jump(letter: string) {
        for (let i = 1; i <= count; ++i) {
            const index = (Math.max(currentIndex, -1) + i) % count;
            if (usable(index) && itemAt(index).text.toLowerCase().startsWith(letter.toLowerCase())) {
                choose(index);
                return;
            }
        }
    }

    function choose(index: int) {
        currentIndex = index;
        if (index >= 0)
            itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }

    contentItem: ListView {
        implicitWidth: {
            let widest = 0;
            for (let i = 0; i < root.count; ++i)
                widest = Math.max(widest, root.itemAt(i).implicitWidth);
            return widest;
        }
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
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
            else if (event.text.length === 1 && event.text > " " && !(event.modifiers & Qt.ControlModifier))
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
