import QtQuick
import Orvella.Design
import Orvella.Leads

/// The search's filters, group by group; folded, how many hold.
FocusScope {
    id: root

    required property LeadFinder finder
    /// There is no room for more than the fold.
    property bool squeezed: false
    readonly property LeadFilters filters: finder.filters
    readonly property bool folded: squeezed || filters.folded
    /// Somebody unfolded it to type keywords.
    property bool searchWanted: false
    property bool made: false

    // Hundreds of values take a while to make: not while the page itself comes.
    Timer {
        interval: 1
        running: !root.folded && !root.made
        onTriggered: root.made = true
    }

    width: folded ? 44 : 244

    Accessible.role: Accessible.Pane
    Accessible.name: "Filters"

    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }

    Rectangle {
        x: parent.width - 1
        width: 1
        height: parent.height
        color: Theme.border
    }

    Loader {
        anchors { fill: parent; rightMargin: 1 }
        active: root.folded
        sourceComponent: fold
    }

    // Once made, they stay.
    Loader {
        anchors { fill: parent; rightMargin: 1 }
        visible: !root.folded
        active: root.made
        sourceComponent: open
    }

    Component {
        id: fold

        Item {
            Shortcut {
                sequences: ["/", StandardKey.Find]
                enabled: !root.squeezed
                onActivated: {
                    root.searchWanted = true;
                    root.filters.folded = false;
                }
            }

            OrvButton {
                id: unfold
                x: 7
                y: 8
                kind: "ghost"
                iconOnly: true
                iconName: "sidebar-expand-left"
                text: "Expand filters"
                enabled: !root.squeezed
                onClicked: root.filters.folded = false
            }

            OrvButton {
                x: 7
                y: 42
                kind: "ghost"
                iconOnly: true
                iconName: "view-filter"
                text: root.filters.chips.length === 0 ? "No filters" : root.filters.chips.length + (root.filters.chips.length === 1 ? " filter" : " filters")
                enabled: !root.squeezed
                onClicked: root.filters.folded = false

                OrvCount {
                    visible: root.filters.chips.length > 0
                    x: parent.width - width / 2 - 6
                    y: -4
                    value: root.filters.chips.length
                }
            }
        }
    }

    Component {
        id: open

        FocusScope {
            function takeKeywords() {
                if (visible && root.searchWanted)
                    groups.takeKeywords();
                root.searchWanted = false;
            }

            onVisibleChanged: takeKeywords()
            Component.onCompleted: takeKeywords()

            Text {
                x: 16
                height: 44
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: "Filters"
                font: Theme.bodyBold
                color: Theme.text
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            OrvButton {
                id: clear
                x: foldButton.x - width - 2
                y: 9
                kind: "ghost"
                size: "small"
                text: "Clear filters"
                enabled: root.filters.any
                onClicked: root.filters.clear()
            }

            OrvButton {
                id: foldButton
                x: parent.width - width - 8
                y: 9
                kind: "ghost"
                size: "small"
                iconOnly: true
                iconName: "sidebar-collapse-left"
                text: "Collapse filters"
                onClicked: root.filters.folded = true
            }

            OrvDivider {
                y: 44
                width: parent.width
            }

            ScrollPane {
                id: body
                y: 45
                width: parent.width
                height: parent.height - y
                contentHeight: groups.height

                FilterGroups {
                    id: groups
                    width: body.width
                    finder: root.finder
                }
            }
        }
    }
}
