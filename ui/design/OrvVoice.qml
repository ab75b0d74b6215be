import QtQuick
import Orvella.Design

/// Speaks what the Announcer has, in turn; a window has one. Qt 6.4 can send no announcement, but screen readers read a
/// notification when it appears, wherever the focus is.
Item {
    id: root

    width: 1
    height: 1
    visible: false
    Accessible.role: Accessible.Notification

    Timer {
        // What changes quickly is told as it comes to rest; what was told stays long enough to be asked for.
        interval: Announcer.waiting.length > 0 ? 150 : 2000
        running: Announcer.waiting.length > 0 || root.visible
        repeat: true
        onTriggered: {
            root.visible = false;
            if (Announcer.waiting.length === 0)
                return;
            root.Accessible.name = Announcer.next();
            root.visible = true;
        }
    }
}
