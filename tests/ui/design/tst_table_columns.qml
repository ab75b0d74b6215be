import QtQuick
import QtTest
import Orvella.Design

/// What a person does to the columns of a table, and what the table does to them when it is narrow.
TestCase {
    id: root

    name: "TableColumns"
    when: windowShown
    width: 900
    height: 300
    visible: true

    property var ticks: []
    property var sorts: []
    readonly property OrvTable table: loader.item
    readonly property var columns: table ? table.placed : null

    ListModel {
        id: records

        Component.onCompleted: {
            for (let i = 0; i < 60; ++i)
                append({id: "id" + i, name: "Name " + i, statusLabel: "Running", sent: i, repliedText: i + ",0", bounced: "\t" + i});
        }
    }

    TextInput { id: clipboard }

    Loader {
        id: loader
        width: 900
        height: root.height
        sourceComponent: OrvTable {
            title: "Campaigns"
            name: "test"
            model: records
            rowHeight: 32
            tickable: true
            tickedKeys: root.ticks
            onSortRequested: (key, descending) => {
                root.sorts.push(key + (descending ? " down" : " up"));
                sortKey = key;
                sortDescending = descending;
            }
            columns: [
                OrvColumn { id: nameColumn; key: "name"; title: "Campaign"; fill: true; minimumWidth: 160; sortable: true },
                OrvColumn { id: statusColumn; key: "status"; title: "Status" },
                OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; alignment: Text.AlignRight; sortable: true },
                OrvColumn { id: repliedColumn; key: "replied"; title: "Replied"; yields: 1 },
                OrvColumn { id: bouncedColumn; key: "bounced"; title: "Bounced"; yields: 2 },
                OrvColumn { id: actionsColumn; key: "actions"; title: "Actions"; titleHidden: true; resizable: false; preferredWidth: 40 }
            ]
            delegate: OrvTableRow {
                id: row
                required property string name
                required property int sent
                label: name
                OrvTwoLineCell { column: nameColumn; title: row.name; detail: "a line about it" }
                OrvTextCell { column: statusColumn; text: "Running" }
                OrvTextCell { column: sentColumn; text: row.sent }
            }
        }
    }

    function initTestCase() {
        Tables.memory = memory;
    }

    function cleanupTestCase() {
        Tables.memory = null;
    }

    function init() {
        ticks = [];
        loader.width = 900;
        table.columnLayout.reset();
        table.columnLayout.setSort("", true);
        table.sortKey = "";
        table.cellColumn = null;
        sorts = [];
        table.show("id0");
        table.focusRows();
        forceHead();
    }

    function forceHead() {
        keyClick(Qt.Key_Tab, Qt.ShiftModifier);
        keyClick(Qt.Key_Left);
    }

    function shown() {
        const keys = [];
        for (let i = 0; i < columns.shown.length; ++i)
            keys.push(columns.shown[i].key);
        return keys;
    }

    readonly property var all: ["name", "status", "sent", "replied", "bounced", "actions"]

    function titleAt(key) {
        const column = columns.column(key);
        return column.x + column.width / 2;
    }

    function again() {
        loader.active = false;
        loader.active = true;
    }

    function test_aWiderTableNeverShowsLess() {
        let before = 0;
        for (let width = 300; width <= 900; width += 7) {
            loader.width = width;
            verify(columns.shown.length >= before, "at " + width);
            verify(columns.contentWidth <= width || columns.shown.length === 4, "what is shown fits, at " + width);
            before = columns.shown.length;
        }
        loader.width = 300;
        compare(shown(), ["name", "status", "sent", "actions"]);
        compare(before, 6);
        table.columnLayout.setShown("bounced", true);
        compare(shown(), ["name", "status", "sent", "bounced", "actions"], "what somebody asked for stays");
        verify(columns.contentWidth > 300);
    }

    function test_titlesAreCarriedByPointer_data() {
        return [
            {tag: "to the left", key: "bounced", to: "status", left: true, want: ["name", "bounced", "status", "sent", "replied", "actions"]},
            {tag: "to the right", key: "status", to: "replied", left: false, want: ["name", "sent", "replied", "status", "bounced", "actions"]},
            {tag: "not before the name", key: "sent", to: "name", left: true, want: ["name", "sent", "status", "replied", "bounced", "actions"]},
            {tag: "not behind the actions", key: "sent", to: "actions", left: false, want: ["name", "status", "replied", "bounced", "sent", "actions"]},
            {tag: "the name stays", key: "name", to: "sent", left: false, want: root.all},
        ];
    }

    function test_titlesAreCarriedByPointer(data) {
        const from = titleAt(data.key);
        const target = columns.column(data.to);
        const to = data.left ? target.x + 4 : target.x + target.width - 4;
        mousePress(table, from, 16);
        for (let part = 0.1; part <= 1; part += 0.1)
            mouseMove(table, from + (to - from) * part, 16, -1, Qt.LeftButton);
        mouseMove(table, to, 16, -1, Qt.LeftButton);
        mouseRelease(table, to, 16);
        compare(shown(), data.want);
        compare(sorts, [], "a carried title is not a pressed one");
        again();
        compare(shown(), data.want, "it is the same at the next start");
    }

    function test_titlesMoveByKeyboard() {
        keyClick(Qt.Key_Right, Qt.ControlModifier);
        compare(shown(), root.all, "the name stays");
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Right, Qt.ControlModifier);
        compare(shown(), ["name", "sent", "status", "replied", "bounced", "actions"]);
        keyClick(Qt.Key_Left, Qt.ControlModifier);
        keyClick(Qt.Key_Left, Qt.ControlModifier);
        compare(shown(), root.all);
        const width = statusColumn().width;
        keyClick(Qt.Key_Right, Qt.AltModifier);
        compare(statusColumn().width, width + 16, "the title kept the focus");
        again();
        compare(statusColumn().width, width + 16);
    }

    function statusColumn() {
        return columns.column("status");
    }

    function entry(name) {
        return reader.find(Window.window.contentItem, name);
    }

    function test_theMenuShowsAndHides() {
        mouseClick(table, titleAt("sent"), 16, Qt.RightButton);
        tryVerify(() => entry("Reset columns"));
        verify(reader.press(entry("Replied")));
        compare(shown(), ["name", "status", "sent", "bounced", "actions"]);
        again();
        compare(shown(), ["name", "status", "sent", "bounced", "actions"]);
        table.focusRows();
        forceHead();
        keyClick(Qt.Key_Right, Qt.AltModifier);
        keyClick(Qt.Key_F10, Qt.ShiftModifier);
        tryVerify(() => entry("Reset columns"));
        verify(reader.press(entry("Reset columns")));
        compare(shown(), root.all);
        again();
        compare(shown(), root.all);
    }

    function test_theSortIsAskedForAgain() {
        mouseClick(table, titleAt("sent"), 16);
        mouseClick(table, titleAt("sent"), 16);
        compare(sorts, ["sent down", "sent up"]);
        sorts = [];
        again();
        compare(sorts, ["sent up"]);
        mouseClick(table, titleAt("sent"), 16);
        sorts = [];
        again();
        compare(sorts, [], "the service's order needs no asking");
    }

    function test_anEdgeFitsItsColumn() {
        const status = statusColumn();
        const before = status.width;
        mouseDoubleClickSequence(table, status.x + status.width + 8, 16);
        verify(status.width < before && status.width >= status.minimumWidth, "to " + status.width);
        mouseDoubleClickSequence(table, columns.column("name").x + columns.column("name").width + 8, 16);
        compare(columns.column("name").width, 160, "no narrower than it may be");
    }

    function copied() {
        clipboard.text = "";
        keyClick(Qt.Key_C, Qt.ControlModifier);
        clipboard.forceActiveFocus();
        keyClick(Qt.Key_V, Qt.ControlModifier);
        return clipboard.text;
    }

    function test_copies_data() {
        return [
            {tag: "the name", keys: [], want: "Name 2"},
            {tag: "the cell", keys: [Qt.Key_Right], want: "Running"},
            {tag: "to the right and back", keys: [Qt.Key_Right, Qt.Key_Right, Qt.Key_Right, Qt.Key_Left], want: "2"},
            {tag: "what is meant to be read", keys: [Qt.Key_Right, Qt.Key_Right, Qt.Key_Right], want: "2,0"},
            {tag: "ticked rows", keys: [Qt.Key_Right], ticks: ["id40", "id3"], want: "Name 3\tRunning\t3\t3,0\t3\nName 40\tRunning\t40\t40,0\t40"},
        ];
    }

    function test_copies(data) {
        table.show("id2");
        table.focusRows();
        ticks = data.ticks ?? [];
        for (const key of data.keys)
            keyClick(key);
        compare(copied(), data.want);
    }
}
