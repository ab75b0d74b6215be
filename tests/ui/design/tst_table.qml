import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    name: "Table"
    when: windowShown
    width: 640
    height: 352
    visible: true

    property var log: []

    ListModel { id: records }

    OrvTable {
        id: table
        anchors.fill: parent
        title: "Campaigns"
        model: records
        rowHeight: 32
        tickable: true
        columns: [
            OrvColumn { id: nameColumn; key: "name"; title: "Campaign"; fill: true; sortable: true },
            OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true }
        ]
        delegate: OrvTableRow {
            id: row
            required property string name
            required property int sent
            label: name
            OrvTextCell { column: nameColumn; text: row.name }
            OrvTextCell { column: sentColumn; text: row.sent }
        }
        onOpened: key => root.log.push("open " + key)
        onMenuRequested: key => root.log.push("menu " + key)
        onRenameRequested: key => root.log.push("rename " + key)
        onDeleteRequested: key => root.log.push("delete " + key)
        onTickToggled: key => root.log.push("tick " + key)
        onTickExtended: (from, to) => root.log.push("extend " + from + " " + to)
        onTickAllToggled: root.log.push("all")
        onTicksCleared: root.log.push("clear")
        onMoreRequested: root.log.push("more")
        onSortRequested: (key, descending) => {
            table.sortKey = key;
            table.sortDescending = descending;
        }
    }

    function fill(count) {
        records.clear();
        for (let i = 0; i < count; ++i)
            records.append({id: "id" + i, name: "Name " + i, sent: i});
    }

    function init() {
        table.sortKey = "";
        table.tickedKeys = [];
        table.busyKeys = [];
        table.canLoadMore = false;
        table.columnLayout.reset();
        fill(100);
        table.query += "x";
        table.rows.setCurrentRow(-1);
        table.show("id0");
        table.focusRows();
        tryVerify(() => table.contentY === table.originY);
        log = [];
    }

    function scrollTo(row) {
        table.show("id" + row);
        table.show("id" + (row - 5));
        verify(table.contentY > table.originY);
    }

    /// How far below the head the record is drawn.
    function drawnAt(key) {
        const item = table.itemOf(key);
        return item ? item.mapToItem(table, 0, 0).y : -1;
    }

    function test_keysMove_data() {
        return [
            {tag: "down", keys: [Qt.Key_Down], at: "id1"},
            {tag: "up stops at the top", keys: [Qt.Key_Up], at: "id0"},
            {tag: "end", keys: [Qt.Key_End], at: "id99"},
            {tag: "down stops at the end", keys: [Qt.Key_End, Qt.Key_Down], at: "id99"},
            {tag: "home", keys: [Qt.Key_End, Qt.Key_Home], at: "id0"},
            {tag: "page down", keys: [Qt.Key_PageDown], at: "id9"},
            {tag: "page up", keys: [Qt.Key_PageDown, Qt.Key_PageDown, Qt.Key_PageUp], at: "id9"},
        ];
    }

    function test_keysMove(data) {
        for (const key of data.keys)
            keyClick(key);
        compare(table.currentKey, data.at);
        compare("id" + table.itemOf(data.at).sent, data.at, "a reused row shows its new record");
        const y = drawnAt(data.at);
        verify(y >= 32 && y + 32 <= table.height, "in sight, at " + y);
        verify(table.itemOf(data.at).activeFocus, "the row has the focus");
    }

    function test_keysAct_data() {
        return [
            {tag: "open", key: Qt.Key_Return, said: ["open id1"], busy: ["open id1"]},
            {tag: "tick", key: Qt.Key_Space, said: ["tick id1"], busy: ["tick id1"]},
            {tag: "menu", key: Qt.Key_Menu, said: ["menu id1"], busy: []},
            {tag: "menu by F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier, said: ["menu id1"], busy: []},
            {tag: "rename", key: Qt.Key_F2, said: ["rename id1"], busy: []},
            {tag: "delete", key: Qt.Key_Delete, said: ["delete id1"], busy: []},
            {tag: "extend", key: Qt.Key_Down, modifiers: Qt.ShiftModifier, said: ["extend id1 id2"], busy: ["extend id1 id2"]},
            {tag: "all", key: Qt.Key_A, modifiers: Qt.ControlModifier, said: ["all"], busy: ["all"]},
        ];
    }

    function test_keysAct(data) {
        table.show("id1");
        keyClick(data.key, data.modifiers ?? Qt.NoModifier);
        compare(log, data.said);

        table.show("id1");
        table.busyKeys = ["id1"];
        log = [];
        keyClick(data.key, data.modifiers ?? Qt.NoModifier);
        compare(log, data.busy);
    }

    function test_escapeClearsTicksOnly() {
        keyClick(Qt.Key_Escape);
        compare(log, []);
        table.tickedKeys = ["id3"];
        keyClick(Qt.Key_Escape);
        compare(log, ["clear"]);
    }

    function test_rowsKeepTheirPlace_data() {
        return [
            {tag: "inserted above", act: () => { for (let i = 0; i < 7; ++i) records.insert(0, {id: "new" + i, name: "New", sent: 0}); }},
            {tag: "removed above", act: () => records.remove(0, 7)},
            {tag: "moved to the front", act: () => records.move(90, 0, 3)},
            {tag: "changed", act: () => records.setProperty(2, "name", "Other")},
            {tag: "several at once", act: () => { records.remove(0, 2); records.insert(0, {id: "new", name: "New", sent: 0}); records.move(80, 1, 1); }},
        ];
    }

    function test_rowsKeepTheirPlace(data) {
        scrollTo(50);
        const key = table.currentKey;
        const before = drawnAt(key);
        data.act();
        tryVerify(() => drawnAt(key) === before, 1000, "the row was at " + before);
        compare(table.currentKey, key);
        tryVerify(() => table.itemOf(key).activeFocus);
    }

    function test_refillKeepsThePlace() {
        scrollTo(50);
        const before = drawnAt("id45");
        fill(100);
        tryVerify(() => drawnAt("id45") === before, 1000, "the row was at " + before);
    }

    function test_currentRowGoesToNeighbour() {
        table.show("id4");
        records.remove(4);
        compare(table.currentKey, "id5");
        table.show("id99");
        records.remove(table.currentRow);
        compare(table.currentKey, "id98");
        records.clear();
        compare(table.currentKey, "");
        keyClick(Qt.Key_Return);
        compare(log, []);
    }

    function test_newQuestionStartsAtTheTop() {
        scrollTo(50);
        table.query += "y";
        tryVerify(() => table.contentY === table.originY);
    }

    function test_sortCycle() {
        const x = sentColumn.x + 10;
        mouseClick(table, x, 16);
        compare([table.sortKey, table.sortDescending], ["sent", true]);
        mouseClick(table, x, 16);
        compare([table.sortKey, table.sortDescending], ["sent", false]);
        mouseClick(table, x, 16);
        compare(table.sortKey, "");
        mouseClick(table, x, 16);
        mouseClick(table, nameColumn.x + 10, 16);
        compare([table.sortKey, table.sortDescending], ["name", true]);
    }

    function test_columnsResize() {
        const width = nameColumn.width;
        compare(nameColumn.width + sentColumn.width, 640 - 24 - 28 - 24 - 16);
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        keyClick(Qt.Key_Left, Qt.AltModifier);
        compare(nameColumn.width, width - 16);
        const edge = nameColumn.x + nameColumn.width + 8;
        mouseDrag(table, edge, 16, -50, 0, Qt.LeftButton, Qt.NoModifier, 0);
        verify(nameColumn.width < width - 40);
        mouseDrag(table, nameColumn.x + nameColumn.width + 8, 16, -1000, 0, Qt.LeftButton, Qt.NoModifier, 0);
        compare(nameColumn.width, nameColumn.minimumWidth);
    }

    function test_pointer() {
        const y = 32 + 3 * 32 + 10;
        mouseClick(table, nameColumn.x + 20, y);
        mouseClick(table, 30, y);
        mouseClick(table, nameColumn.x + 20, y + 64, Qt.LeftButton, Qt.ShiftModifier);
        mouseClick(table, nameColumn.x + 20, y, Qt.RightButton);
        compare(log, ["open id3", "tick id3", "extend id3 id5", "menu id3"]);
    }

    function test_asksForMoreNearTheEnd() {
        table.canLoadMore = true;
        keyClick(Qt.Key_PageDown);
        compare(log, []);
        keyClick(Qt.Key_End);
        verify(log.length > 0 && log.every(entry => entry === "more"));
        table.moreFailed = true;
        log = [];
        keyClick(Qt.Key_Up);
        compare(log, [], "a failed page waits for Retry");
        table.moreFailed = false;
    }

    function test_rowSaysWhereItIs() {
        table.totalCount = 3400;
        compare(table.itemOf("id1").Accessible.name, "row 2 of 3,400, Name 1");
        table.busyKeys = ["id1"];
        compare(table.itemOf("id1").Accessible.name, "row 2 of 3,400, Name 1, busy");
        table.itemOf("id1").Accessible.pressAction();
        compare(log, ["open id1"]);
        table.totalCount = -1;
    }
}
