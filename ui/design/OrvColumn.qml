import QtQuick

/// One column of an OrvTable: what the page asks for, and where the table put it.
QtObject {
    /// Names the column in sorts and saved widths.
    required property string key
    property string title: ""
    /// The title is only spoken: what the column holds explains itself.
    property bool titleHidden: false
    property int alignment: Text.AlignLeft
    property bool visible: true
    property bool sortable: false
    property bool resizable: true
    /// Takes a share of the width that is left over.
    property bool fill: false
    /// Stays in place while the table scrolls sideways.
    property bool frozen: false
    property real preferredWidth: 96
    property real minimumWidth: 48
    property real maximumWidth: 480
    /// The width the person dragged the column to, 0 when they have not.
    property real chosenWidth: 0

    /// Set by the table.
    property real x: 0
    property real width: preferredWidth
    /// What keeps a frozen column in place.
    property real shift: 0
}
