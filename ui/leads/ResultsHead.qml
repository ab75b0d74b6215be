import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Over what the search found: how much that is, of which pool, the columns, and the filters that hold.
Item {
    id: root

    required property LeadFinder finder
    readonly property bool narrow: width < 760

    signal walkedOut()

    height: 44 + (chips.visible ? chips.implicitHeight + 2 : 0)

    Text {
        id: count
        x: 16
        width: tools.x - x - 12
        height: 44
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.finder.results.countText
        font: Theme.emptyTitle
        color: Theme.text
        readonly property bool waiting: root.finder.results.waiting
        opacity: waiting ? 0.5 : 1
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        id: tools
        x: parent.width - width - 16
        y: 9
        spacing: 8

        OrvSegments {
            height: Theme.controlHeightSmall
            label: "Pool"
            options: root.finder.pools
            current: root.finder.pool
            readonly property bool waiting: root.finder.poolsWaiting
            opacity: waiting ? 0.5 : 1
            onChosen: key => root.finder.pool = key
        }

        LeadColumnsButton {
            choice: root.finder.columns
            iconOnly: root.narrow
        }

        OrvButton {
            id: more
            kind: "ghost"
            size: "small"
            iconOnly: true
            iconName: "overflow-menu"
            text: "More actions"
            onClicked: menu.openUnder(more)
        }
    }

    FilterChips {
        id: chips
        x: 16
        y: 44
        width: parent.width - 32
        visible: root.finder.filters.any
        filters: root.finder.filters
        onWalkedOut: root.walkedOut()
    }

    ActionMenu {
        id: menu
        store: root.finder
    }
}
