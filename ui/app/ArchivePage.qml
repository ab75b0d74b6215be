import QtQuick
import Orvella.Design
import Orvella.App

/// What was deleted and can be restored, in the place of the list that it was deleted from.
TablePage {
    id: root

    /// Says what can be done with each of them.
    required property Store actor
    /// "Back to accounts".
    required property string backText

    signal back()

    view.emptyIcon: "archive-insert"
    view.emptyTitle: "Nothing archived"
    view.onRetryRequested: actor.refresh()

    function openMenu(key: string, row: Item, x: real, y: real) {
        menu.openFor(key, row, x, y);
    }

    leading: OrvButton {
        text: root.backText
        iconName: "arrow-left"
        onClicked: root.back()
    }

    trailing: RefreshButton {
        resource: root.resource
        onClicked: root.actor.refresh()
    }

    ActionMenu {
        id: menu
        store: root.actor
    }

    Shortcut {
        sequence: "Escape"
        onActivated: root.back()
    }
}
