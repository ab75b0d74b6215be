import QtQuick
import Orvella.Design
import Orvella.Leads

/// What a filter leaves out: at first the way to it, then itself, which its user gives as its child.
Column {
    id: root

    required property LeadFilters filters
    required property string key
    required property string several
    readonly property list<string> keys: [...filters.exclusions]
    readonly property bool shown: keys.includes(key)
    default property Component content

    OrvButton {
        visible: !root.shown
        kind: "ghost"
        size: "small"
        leftPadding: 0
        iconName: "list-add"
        text: "Exclude " + root.several
        onClicked: root.filters.showExclusions(root.key)
    }

    Loader {
        width: root.width
        active: root.shown
        visible: active
        sourceComponent: root.content
    }
}
