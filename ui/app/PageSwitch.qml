import QtQuick

/// One of several views in a page's place, each with `focusTable`: whoever went elsewhere and back goes on with the
/// keyboard where the content is.
Loader {
    // The views have no type in common.
    readonly property var content: item

    focus: true
    onLoaded: content.focusTable()
}
