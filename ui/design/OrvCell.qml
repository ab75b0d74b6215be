import QtQuick

/// A cell of an OrvTableRow with content of its own; sits in its column.
Item {
    id: root

    required property OrvColumn column
    /// What the cell says, for screen readers, after its column's title.
    property string label: ""

    /// What the cell would take, for a column that is to fit its cells.
    property real naturalWidth: childrenRect.width

    x: column.x + column.shift
    z: column.frozen ? 1 : 0
    width: column.width
    height: parent ? parent.height : 0
    visible: column.shown

    Accessible.role: Accessible.Cell
    Accessible.name: label === "" ? column.title : column.title + ", " + label
}
