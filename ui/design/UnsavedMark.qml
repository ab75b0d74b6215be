import QtQuick

/// The dot beside a name behind which something is unsaved; the name says so to who cannot see it.
Rectangle {
    width: 7
    height: 7
    radius: 3.5
    color: Theme.accentText
}
