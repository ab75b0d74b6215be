import QtQuick
import Orvella.Design

/// The search of a page or a part of it. Down, Enter, and Esc once it is empty lead to what is searched.
OrvField {
    id: root

    /// "/" and Ctrl+F lead here: one on a page has them.
    property bool ofPage: true

    /// The person is done with the search.
    signal finished()

    function take() {
        forceActiveFocus(Qt.ShortcutFocusReason);
        selectAll();
    }

    search: true
    onAccepted: finished()
    onEscaped: finished()
    Keys.onDownPressed: finished()

    Shortcut {
        sequences: ["/", StandardKey.Find]
        enabled: root.ofPage && root.visible && root.enabled
        onActivated: root.take()
    }
}
