import QtQuick

/// A menu that is made when it is first opened. Not in a file of bound components, which a type declared elsewhere
/// cannot make.
Loader {
    readonly property OrvMenu popup: item as OrvMenu

    active: false

    function openAt(button: Item, alignRight: bool) {
        active = true;
        popup.openAt(button, alignRight);
    }

    /// At a place in a row.
    function openIn(row: Item, x: real, y: real) {
        active = true;
        popup.popupIn(row, x, y);
    }
}
