import QtQuick

/// One column of an OrvTable: what the page asks for, and where the table put it.
QtObject {
    /// Names the column in sorts and in what is kept of it.
    required property string key
    property string title: ""
    /// The title is only spoken: what the column holds explains itself.
    property bool titleHidden: false
    property int alignment: Text.AlignLeft
    /// There is such a column at all; whether it shows is the person's and the table's to say.
    property bool visible: true
    property bool sortable: false
    property bool resizable: true
    /// Takes a share of the width that is left over.
    property bool fill: false
    /// Stays in place while the table scrolls sideways.
    property bool frozen: false
    /// Always there and in its place, like the name and the actions.
    property bool fixed: fill || frozen || !resizable
    /// Goes where the table is too narrow for all columns, the highest number first; 0 stays.
    property int yields: 0
    property real preferredWidth: 96
    property real minimumWidth: 48
    property real maximumWidth: 480

    // Set by the table.
    property bool shown: visible
    property real x: 0
    property real width: preferredWidth
    /// What keeps a frozen column in place.
    property real shift: 0
}
