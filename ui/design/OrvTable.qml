import QtQuick

/// Rows of records under a sticky head. Give it `columns`, a `model` whose `keyRole` holds ids, and a `delegate`
/// made of an OrvTableRow. Everything the person does comes out as a signal with the record's id.
TableCore {
    id: root

    property alias delegate: body.delegate
    property alias contentY: body.contentY
    readonly property alias originY: body.originY

    Accessible.role: Accessible.Table
    Accessible.name: title

    onSortKeyChanged: body.goToTop()
    onSortDescendingChanged: body.goToTop()
    onQueryChanged: body.goToTop()

    /// Scrolls the record into view and makes it the current one.
    function show(key: string) {
        body.moveTo(rows.rowOf(key));
    }

    /// Gives the rows the focus, also where the head had it last.
    function focusRows() {
        body.forceActiveFocus(Qt.OtherFocusReason);
    }

    /// The row's item, null while it is out of sight.
    function itemOf(key: string): Item {
        // The view lays changes out with the next frame only.
        body.forceLayout();
        return body.itemAtIndex(rows.rowOf(key));
    }

    OrvTableHead {
        id: head
        z: 2
        width: root.width
        table: root
        KeyNavigation.down: body
        onFitRequested: column => root.placed.resize(column, body.naturalWidth(column))
    }

    TableBody {
        id: body
        table: root
        y: head.height
        width: root.width
        height: root.height - y
        focus: true
    }
}
