import QtQuick

/// A cell of an OrvTableRow that is one line of text: one plain Text, since a table shows hundreds.
Text {
    id: root

    required property OrvColumn column
    readonly property real naturalWidth: implicitWidth

    x: column.x + column.shift
    z: column.frozen ? 1 : 0
    width: column.width
    height: parent ? parent.height : 0
    visible: column.shown
    horizontalAlignment: column.alignment
    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
    maximumLineCount: 1
    textFormat: Text.PlainText
    font: Theme.body
    color: Theme.text

    Accessible.role: Accessible.Cell
    Accessible.name: column.title + ", " + text
}
