import QtQuick
import Orvella.Design

/// What an OrvTable is asked for, what it says and the state that its parts share. The parts refer to this type, since
/// two QML types cannot refer to each other.
FocusScope {
    id: root

    /// What the list is called, for screen readers.
    required property string title
    /// Under this name the person's columns and sort are kept across starts; empty for a table that keeps nothing.
    property alias name: layout.table
    property alias columns: placedColumns.columns
    property alias model: tableRows.model
    /// The role that holds a record's id.
    property alias keyRole: tableRows.keyRole
    property real rowHeight: 52
    property bool tickable: false
    property string selectAllText: "Select all"
    /// The head's menu says which columns show; otherwise the page has another place for it.
    property bool choosable: true
    property alias tickedKeys: tableRows.tickedKeys
    property alias busyKeys: tableRows.busyKeys
    /// The record whose detail shows beside the table; empty for none.
    property string openKey: ""
    /// The column the rows are sorted by; empty is the service's order.
    property string sortKey: ""
    property bool sortDescending: true
    /// Stands for the question the rows answer (filter, search); the table goes to its top when it changes.
    property string query: ""
    /// How many records there are, when the model holds only the first of them; -1 is the model's count.
    property int totalCount: -1
    property bool canLoadMore: false
    property bool loadingMore: false
    property bool moreFailed: false
    /// Room kept free under the last row, for a selection bar.
    property real footRoom: 0
    property real sidePadding: 24
    /// The page around it scrolls the table, by `contentY`; the table itself takes no wheel and has no bar.
    property bool scrolledByPage: false

    readonly property alias rows: tableRows
    readonly property alias placed: placedColumns
    readonly property alias scrollX: placedColumns.scrollX
    readonly property alias columnLayout: layout
    readonly property alias currentRow: tableRows.currentRow
    readonly property alias currentKey: tableRows.currentKey
    readonly property int recordCount: totalCount < 0 ? tableRows.count : totalCount
    readonly property real tickWidth: tickable ? 28 : 0

    readonly property bool ringShown: InputMode.keyboard

    /// Where it was when somebody left it, { key, y, focused }; it goes back there as soon as the row is there.
    property var wanted: ({})

    // Written by the table's parts.
    property int hoveredRow: -1
    /// The column of the current cell, which Left and Right move along the current row.
    property OrvColumn cellColumn: null
    readonly property OrvColumn currentColumn: cellColumn !== null && cellColumn.shown ? cellColumn
        : placedColumns.shown.length > 0 ? placedColumns.shown[0] : null

    signal opened(string key)
    /// `row` is the row's item; `x` and `y` are inside it.
    signal menuRequested(string key, Item row, real x, real y)
    signal renameRequested(string key)
    signal deleteRequested(string key)
    signal tickToggled(string key)
    /// Every row from the selection's anchor (or `fromKey`, where it has none) to `toKey`.
    signal tickExtended(string fromKey, string toKey)
    signal tickAllToggled()
    signal ticksCleared()
    /// `key` is empty to return to the service's order.
    signal sortRequested(string key, bool descending)
    signal moreRequested()
    /// These rows are on the screen.
    signal rowsSeen(int first, int last)

    /// Asks the page for an order of the rows and keeps it.
    function sortBy(key: string, descending: bool) {
        layout.setSort(key, descending);
        sortRequested(key, descending);
    }

    Component.onCompleted: {
        const column = placedColumns.column(layout.sortKey);
        if (column && column.sortable && (sortKey !== column.key || sortDescending !== layout.sortDescending))
            sortRequested(column.key, layout.sortDescending);
    }

    TableLayout {
        id: layout
        memory: Tables.memory
    }

    TableRows {
        id: tableRows
    }

    TableColumns {
        id: placedColumns
        layout: layout
        availableWidth: root.width
        leftPadding: root.sidePadding + root.tickWidth
        rightPadding: root.sidePadding
    }
}
