import QtQuick
import Orvella.Design

/// Out of a screen reader's reach while a modal popup is open over it.
ModalGate {
    /// The popup's that it is in; 0 for the page.
    property int level: 0

    shut: Modals.depth > level
    // Without it the toolkit would look through to what is inside.
    Accessible.role: Accessible.Pane
}
