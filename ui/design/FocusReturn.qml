import QtQuick

/// Gives the focus back to what had it before a popup.
QtObject {
    id: root

    property Item opener: null

    /// As the popup is about to show; `item` is any item of its window.
    function remember(item: Item) {
        const window = item ? item.Window.window : null;
        opener = window ? window.activeFocusItem : null;
    }

    /// As it is about to hide. The popup has let go of the focus by then, and what was chosen in it may have taken it.
    /// Popups go without fading out: one that fades still takes the keys that are meant for what is under it.
    function giveBack() {
        const item = opener;
        opener = null;
        if (!item || !item.visible)
            return;
        const window = item.Window.window;
        const holder = window ? window.activeFocusItem : null;
        if (!holder || holder === window.contentItem)
            item.forceActiveFocus(Qt.PopupFocusReason);
    }
}
