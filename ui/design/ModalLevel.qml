import QtQuick
import Orvella.Design

/// What a modal popup keeps of its place among the others.
QtObject {
    id: root

    /// The popup is open and modal.
    required property bool held
    property int level: 0

    onHeldChanged: follow()
    Component.onDestruction: {
        if (level > 0)
            Modals.leave();
    }

    function follow() {
        if (held && level === 0) {
            level = Modals.enter();
        } else if (!held && level > 0) {
            level = 0;
            Modals.leave();
        }
    }
}
