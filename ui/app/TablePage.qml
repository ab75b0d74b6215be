import QtQuick
import Orvella.Design
import Orvella.App

/// A page that is a table: what it is, what of it shows, the table in each of its states, and how much that is.
FocusScope {
    id: root

    /// Empty where a tab says it already.
    property alias title: header.title
    property alias summary: header.summary
    property alias attention: header.attention
    property alias actions: header.actions
    property alias leading: filters.leading
    property alias trailing: filters.trailing
    property alias countText: foot.countText
    /// How it is while there is nothing to show: "view.emptyTitle", "view.errorTitle" and so on.
    readonly property alias view: resourceView
    property alias resource: resourceView.resource
    default property alias content: resourceView.content

    PageHeader {
        id: header
        visible: title !== ""
        width: root.width
        height: visible ? implicitHeight : 0
    }

    OrvFilterLine {
        id: filters
        y: header.height
        width: root.width
    }

    ResourceView {
        id: resourceView
        y: filters.y + filters.height
        width: root.width
        height: root.height - y - foot.height
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: root.width
        resource: resourceView.resource
    }
}
