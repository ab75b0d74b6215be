import QtQuick

/// The line between a page's header and its table: what is shown to the left, how it is searched to the right.
Item {
    id: root

    property alias leading: leftRow.data
    default property alias trailing: rightRow.data
    /// What the right side may use.
    readonly property real rightRoom: width - 2 * Theme.pageSide - leftRow.width - 16

    implicitHeight: 48

    Row {
        id: leftRow
        x: Theme.pageSide
        y: 6
        height: Theme.controlHeight
        spacing: 8
    }

    Row {
        id: rightRow
        x: root.width - width - Theme.pageSide
        y: 6
        height: Theme.controlHeight
        spacing: 8
    }
}
