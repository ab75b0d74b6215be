import QtQuick
import QtTest
import Orvella.Design

/// A list whose rows hold controls makes only those that are near: Tab goes through all of them all the same.
TestCase {
    id: root

    name: "Rows"
    when: windowShown
    visible: true
    width: 400
    height: 400

    property int moves: 0
    property int pressed: -1
    readonly property int rows: 40

    Column {
        OrvButton { id: before; text: "Before" }

        ListView {
            id: list
            width: 300
            height: 200
            clip: true
            model: root.rows
            delegate: Item {
                id: row
                required property int index
                width: list.width
                height: 30 + index % 3 * 10
                OrvButton { text: row.index; onClicked: root.pressed = row.index }
            }

            RowFocus {
                target: list
                onMoved: ++root.moves
            }
        }

        OrvButton { id: after; text: "After" }
    }

    function isSeen(item) {
        const y = item.mapToItem(list, 0, 0).y;
        return y >= 0 && y + item.height <= list.height;
    }

    /// What Tab comes to on its way out of the list.
    function walk(key) {
        const walked = [];
        for (let at = 0; at <= rows; ++at) {
            keyClick(key);
            const item = Window.activeFocusItem;
            if (item === before || item === after)
                break;
            walked.push(isSeen(item) ? Number(item.text) : item.text + " unseen");
        }
        return walked;
    }

    function test_tabReachesEveryRow() {
        const all = Array.from({length: rows}, (_, i) => i);
        before.forceActiveFocus(Qt.TabFocusReason);
        compare(walk(Qt.Key_Tab), all);
        verify(after.activeFocus);
        compare(walk(Qt.Key_Backtab), all.reverse());
        verify(before.activeFocus);

        // Scrolled there and back by a wheel, rows have been made in another order.
        list.contentY = 600;
        wait(10);
        list.contentY = 0;
        wait(10);
        compare(walk(Qt.Key_Tab), all.reverse());
    }

    function test_nothingMovesUnderThePointer() {
        list.contentY = 15;
        moves = 0;
        mouseClick(list, 5, 5);
        compare(pressed, 0);
        compare(moves, 0);
        keyClick(Qt.Key_Tab);
        compare(moves, 1);
    }
}
