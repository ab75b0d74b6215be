import QtQuick
import Orvella.Design
import Orvella.App

/// Reads what a page shows again, as F5 and Ctrl+R do: the store's own "refresh" action.
OrvButton {
    id: root

    /// What is read again; its reload turns the ring.
    property Resource resource: null
    property bool withKeys: true

    kind: "ghost"
    iconOnly: true
    iconName: "view-refresh"
    text: "Refresh"
    keys: withKeys ? "F5" : ""
    busy: resource !== null && resource.refreshing
}
