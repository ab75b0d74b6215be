import QtQuick
import Orvella.Design
import Orvella.App

/// The table of a list that is read page by page, with its ticks where rows can be ticked.
OrvTable {
    id: root

    required property PagedList list
    property RowSelection selection: null

    model: list.rows
    keyRole: "id"
    query: list.question
    canLoadMore: list.canLoadMore
    loadingMore: list.loadingMore
    moreFailed: list.moreFailed
    tickedKeys: selection ? selection.ids : []

    onMoreRequested: list.loadMore()
    onRowsSeen: (first, last) => list.see(first, last)
    onTickToggled: key => selection.toggle(key)
    onTickExtended: (from, to) => selection.extendTo(from, to)
    onTickAllToggled: selection.toggleAll()
    onTicksCleared: selection.clear()
}
