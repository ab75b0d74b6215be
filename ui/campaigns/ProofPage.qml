import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Campaigns

/// Before a launch: the first email for a dozen of the leads, side by side. The arrows walk the wall; Enter leads to the
/// lead or to the text.
FocusScope {
    id: root

    required property CampaignStore store

    readonly property ProofWall wall: store.proof
    readonly property real paneWidth: width < 1000 ? 240 : 264
    readonly property int columns: grid.width < 800 ? 2 : grid.width > 1200 ? 4 : 3
    readonly property int rows: Math.max(1, Math.ceil(cells.count / columns))
    readonly property real cellHeight: Math.max(186, Math.floor(grid.height / (12 / columns)))

    function cellX(column: int): real {
        return Math.round(column * grid.width / columns);
    }

    /// Which email Tab comes to.
    function place(): int {
        for (let i = 0; i < cells.count; ++i)
            if ((cells.itemAt(i) as ProofCell)?.current)
                return i;
        return 0;
    }

    function go(index: int) {
        const cell = cells.itemAt(index) as ProofCell;
        if (!cell)
            return;
        wall.current = cell.model.id;
        cell.forceActiveFocus(Qt.TabFocusReason);
        grid.contentY = Math.max(cell.y + cell.height - grid.height, Math.min(grid.contentY, cell.y));
    }

    /// As far up or down its column as the window shows at once.
    function goPage(by: int) {
        const from = place();
        let to = from + by * columns * Math.max(1, Math.floor(grid.height / cellHeight));
        while (to < 0) to += columns;
        while (to >= cells.count) to -= columns;
        go(to);
    }

    Component.onCompleted: {
        wall.watched = true;
        forceActiveFocus(Qt.OtherFocusReason);
    }
    Component.onDestruction: wall.watched = false

    Keys.onEscapePressed: root.store.tab = "sequence"

    Flickable {
        id: grid
        width: root.width - root.paneWidth
        height: root.height
        visible: root.wall.nothing === ""
        contentHeight: root.rows * root.cellHeight
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true

        Accessible.role: Accessible.List
        Accessible.name: "First emails, " + cells.count

        T.ScrollBar.vertical: OrvScrollBar {}

        Keys.onLeftPressed: root.go(root.place() - 1)
        Keys.onRightPressed: root.go(root.place() + 1)
        Keys.onUpPressed: root.go(root.place() - root.columns)
        Keys.onDownPressed: root.go(root.place() + root.columns)
        Keys.onPressed: event => {
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_Home: root.go(0); break;
            case Qt.Key_End: root.go(cells.count - 1); break;
            case Qt.Key_PageUp: root.goPage(-1); break;
            case Qt.Key_PageDown: root.goPage(1); break;
            default: event.accepted = false;
            }
        }

        Repeater {
            id: cells
            model: root.wall.emails

            ProofCell {
                id: cell

                required property int index
                readonly property int column: index % root.columns

                x: root.cellX(column)
                y: Math.floor(index / root.columns) * root.cellHeight
                width: root.cellX(column + 1) - x
                height: root.cellHeight
                focus: current
                tabStop: root.place() === index
                onClicked: root.go(index)
                onOpened: root.wall.open(model.id)
            }
        }

        Repeater {
            model: root.rows

            OrvDivider {
                required property int index

                y: (index + 1) * root.cellHeight - 1
                width: grid.width
            }
        }

        Repeater {
            model: root.columns - 1

            Rectangle {
                required property int index

                x: root.cellX(index + 1) - 1
                width: 1
                height: grid.contentHeight
                color: Theme.border
            }
        }
    }

    OrvSkeleton {
        visible: cells.count === 0 && root.wall.nothing === "" && root.wall.message === ""
        width: grid.width
        height: root.height
        topInset: 0
    }

    OrvEmpty {
        width: grid.width
        height: root.height
        visible: root.wall.nothing !== ""
        iconName: "mail-message"
        title: "Nothing to look at yet"
        text: root.wall.nothing
        actionText: !root.store.canWrite ? "" : root.wall.lacking === "sequence" ? "Go to the sequence"
                                              : root.wall.lacking === "leads" ? "Go to the leads" : ""
        onActionRequested: root.store.tab = root.wall.lacking
    }

    ProofPane {
        x: grid.width
        width: root.paneWidth
        height: root.height
        store: root.store
    }
}
