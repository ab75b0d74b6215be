import QtQuick

/// Makes a popup when it is first wanted and lets it go when it has closed: a window starts without its dialogs.
Loader {
    id: root

    /// The popup is wanted on screen.
    property bool shown: false

    active: false

    onShownChanged: follow()
    Component.onCompleted: follow()

    function follow() {
        if (shown) {
            active = true;
            item["open"]();
        } else if (item) {
            item["close"]();
        }
    }

    // Not from within the popup's own signal: it may have more to say.
    function release() {
        if (!item || item["visible"])
            return;
        // Wanted again while it faded out.
        if (shown)
            item["open"]();
        else
            active = false;
    }

    Connections {
        target: root.item
        ignoreUnknownSignals: true

        function onClosed() {
            Qt.callLater(root.release);
        }
    }
}
