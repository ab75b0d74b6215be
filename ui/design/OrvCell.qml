import QtQuick

/// A cell of an OrvTableRow with content of its own; sits in its column.
Item {
    id: root

    required property OrvColumn column
    /// What the cell says, for screen readers, after its column's title.
    property string label: ""

    x: column.x + column.shift
    z: column.frozen ? 1 : 0
    width: column.width
    height: parent ? parent.height : 0
    visible: column.visible

    Accessible.role: Accessible.Cell
    Accessible.name: label === "" ? column.title : column.title + ", " + label
}
