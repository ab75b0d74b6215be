import QtQuick
import QtQuick.Templates as T

/// Makes a popup when it is first wanted and lets it go when it has closed: a window starts without its dialogs.
Loader {
    id: root

    /// The popup is wanted on screen.
    property bool shown: false
    readonly property T.Popup popup: item as T.Popup

    active: false

    onShownChanged: follow()
    onLoaded: follow()

    function follow() {
        // Wanted from the start, it is there only after this is complete.
        if (shown)
            active = true;
        if (!popup)
            return;
        if (shown)
            popup.open();
        else
            popup.close();
    }

    // Not from within the popup's own signal: it may have more to say.
    function release() {
        if (!popup || popup.visible)
            return;
        // Wanted again while it faded out.
        if (shown)
            popup.open();
        else
            active = false;
    }

    Timer {
        id: later
        interval: 0
        onTriggered: root.release()
    }

    Connections {
        target: root.item
        ignoreUnknownSignals: true

        function onClosed() {
            later.start();
        }
    }
}
