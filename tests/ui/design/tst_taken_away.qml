import QtQuick
import QtTest
import Orvella.Design

/// Every control in an entry of a list, where the answer to what the person does takes the entry away at once. A
/// handler that looks at its item after that ends the program.
TestCase {
    id: root

    name: "TakenAway"
    when: windowShown
    visible: true
    width: 800
    height: 600

    property var entries: []
    property int said: 0
    readonly property var choices: [{key: "a", label: "Alpha"}, {key: "b", label: "Beta"}]

    function gone() {
        ++said;
        entries = [];
    }

    Repeater {
        id: list
        model: root.entries
    }

    ListModel { id: records; Component.onCompleted: append({id: "id0", name: "One"}) }
    ListModel { id: results; ListElement { group: "Pages"; title: "Campaigns"; subtitle: ""; iconName: ""; chord: "" } }
    ListModel { id: toasts; ListElement { toastId: "t1"; message: "Deleted"; detail: ""; tone: "standard"; actionLabel: "Undo" } }

    Component { id: button; OrvButton { text: "Act"; onClicked: root.gone() } }
    Component { id: link; OrvLink { text: "Act"; onClicked: root.gone() } }
    Component { id: checkbox; OrvCheckbox { text: "Act"; onToggled: root.gone() } }
    Component { id: toggle; OrvSwitch { text: "Act"; onToggled: root.gone() } }
    Component { id: chip; OrvChip { value: "Act"; onRemoved: root.gone() } }
    Component { id: pressable; Pressable { width: 60; height: 30; text: "Act"; onClicked: root.gone() } }
    Component { id: segments; OrvSegments { options: root.choices; current: "a"; onChosen: root.gone() } }
    Component { id: tabs; OrvTabs { options: root.choices; current: "a"; onChosen: root.gone() } }
    Component { id: field; OrvField { label: "Act"; onEdited: root.gone(); onAccepted: root.gone() } }
    Component { id: area; OrvTextArea { label: "Act"; onEdited: root.gone() } }
    Component { id: search; OrvField { search: true; text: "x"; onEdited: root.gone(); onEscaped: root.gone() } }
    Component { id: number; OrvNumberField { label: "Act"; to: 9; onEdited: root.gone() } }
    Component { id: typedNumber; OrvNumberField { label: "Act"; to: 9; keepsText: true; onTyped: root.gone() } }
    Component { id: code; OrvCodeField { text: "12345"; onEdited: root.gone() } }
    Component { id: suggest; OrvSuggestField { width: 200; suggestions: root.choices; onChosen: root.gone() } }
    Component { id: tags; OrvTagEditor { width: 300; tags: root.choices; onAdded: root.gone(); onRemoved: root.gone() } }
    Component { id: select; OrvSelect { options: root.choices; current: "a"; onChosen: root.gone() } }
    Component { id: state; OrvStateView { width: 400; height: 300; status: "error"; onRetryRequested: root.gone() } }
    Component { id: bar; OrvSelectionBar { count: 2; onCleared: root.gone() } }
    Component {
        id: menu
        Item {
            property alias popup: inner
            width: 60
            height: 30
            OrvMenu { id: inner; OrvMenuItem { text: "Act"; onTriggered: root.gone() } }
        }
    }
    Component {
        id: dialog
        Item {
            property alias popup: inner
            OrvDialog { id: inner; confirmText: "Act"; onConfirmed: root.gone(); onCancelled: root.gone() }
        }
    }
    Component {
        id: palette
        Item {
            property alias popup: inner
            OrvCommandPalette { id: inner; model: results; onChosen: root.gone() }
        }
    }
    Component {
        id: stack
        OrvToastStack { model: toasts; onActionRequested: root.gone(); onCloseRequested: root.gone() }
    }
    Component {
        id: table
        OrvTable {
            width: 600
            height: 200
            title: "Campaigns"
            model: records
            tickable: true
            columns: [OrvColumn { id: nameColumn; key: "name"; title: "Act"; sortable: true }]
            delegate: OrvTableRow {
                id: row
                required property string name
                label: name
                OrvTextCell { column: nameColumn; text: row.name }
            }
            onOpened: root.gone()
            onMenuRequested: root.gone()
            onRenameRequested: root.gone()
            onTickToggled: root.gone()
            onTickAllToggled: root.gone()
            onTickExtended: root.gone()
            onSortRequested: root.gone()
        }
    }

    // What is pressed by its name: as a reader does, by pointer, and by a key while it has the focus.
    readonly property var pressed: [
        {tag: "button", make: button, name: "Act", key: Qt.Key_Return},
        {tag: "link", make: link, name: "Act", key: Qt.Key_Return},
        {tag: "checkbox", make: checkbox, name: "Act", key: Qt.Key_Return},
        {tag: "switch", make: toggle, name: "Act", key: Qt.Key_Return},
        {tag: "chip", make: chip, name: " Act", key: Qt.Key_Backspace, pointer: false},
        {tag: "pressable", make: pressable, name: "Act"},
        {tag: "segments", make: segments, name: "Beta", key: Qt.Key_Right},
        {tag: "tabs", make: tabs, name: "Beta", key: Qt.Key_Right},
        {tag: "search", make: search, name: "Clear"},
        {tag: "number", make: number, name: "More, Act", key: Qt.Key_Up},
        {tag: "number that keeps its text", make: typedNumber, name: "More, Act", key: Qt.Key_Up},
        {tag: "state", make: state, name: "Try again"},
        {tag: "selection bar", make: bar, name: "Clear", key: Qt.Key_Escape},
        {tag: "toast", make: stack, name: "Undo"},
        {tag: "toast's end", make: stack, name: "Close"},
        {tag: "table's head", make: table, name: "Act"},
        {tag: "table's ticks", make: table, name: "Select all"},
        {tag: "row", make: table, name: "row 1 of 1, One"},
        {tag: "menu", make: menu, name: "Act", opens: true, key: Qt.Key_Return},
        {tag: "dialog", make: dialog, name: "Act", opens: true, key: Qt.Key_Return},
        {tag: "dialog's cancel", make: dialog, name: "Cancel", opens: true, key: Qt.Key_Escape},
        {tag: "palette", make: palette, name: "Campaigns", opens: true, key: Qt.Key_Return},
        {tag: "select", make: select, name: "Beta", menu: true},
        {tag: "suggestion", make: suggest, name: "Beta", typed: "x"},
    ]

    readonly property var keys: [
        {tag: "field, a letter", make: field, keys: ["x"]},
        {tag: "area, a letter", make: area, keys: ["x"]},
        {tag: "field, Enter", make: field, keys: [Qt.Key_Return]},
        {tag: "search, Esc", make: search, keys: [Qt.Key_Escape]},
        {tag: "code", make: code, keys: ["6"]},
        {tag: "select, a letter", make: select, keys: ["b"]},
        {tag: "select, from its menu", make: select, keys: [Qt.Key_Return, Qt.Key_Down, Qt.Key_Return]},
        {tag: "suggestion", make: suggest, keys: ["x", Qt.Key_Down, Qt.Key_Return]},
        {tag: "tags, two at once", make: tags, keys: ["x", Qt.Key_Comma]},
        {tag: "tags, the last", make: tags, keys: [Qt.Key_Backspace]},
        {tag: "table, open", make: table, keys: [Qt.Key_Return]},
        {tag: "table, tick", make: table, keys: [Qt.Key_Space]},
        {tag: "table, menu", make: table, keys: [Qt.Key_Menu]},
        {tag: "table, rename", make: table, keys: [Qt.Key_F2]},
    ]

    function test_takenAway_data() {
        const rows = [];
        for (const row of pressed) {
            rows.push(Object.assign({}, row, {tag: row.tag + " by a reader", way: "reader"}));
            if (row.pointer !== false) rows.push(Object.assign({}, row, {tag: row.tag + " by pointer", way: "pointer"}));
            if (row.key) rows.push(Object.assign({}, row, {tag: row.tag + " by key", way: "key"}));
        }
        return rows.concat(keys.map(row => Object.assign({}, row, {way: "keys"})));
    }

    function test_takenAway(data) {
        said = 0;
        entries = [];
        list.delegate = data.make;
        entries = [1];
        const item = list.itemAt(0);
        waitForRendering(item.Window.contentItem ?? root);
        if (data.opens) {
            data.tag.startsWith("menu") ? item.popup.openAt(item, false) : item.popup.open();
            tryCompare(item.popup, "opened", true);
        } else {
            item.forceActiveFocus(Qt.TabFocusReason);
            if (item instanceof OrvTable) item.focusRows();
        }
        if (data.menu) item.open();
        if (data.typed) keyClick(data.typed);
        if (data.way === "keys") {
            for (const key of data.keys) keyClick(key);
        } else if (data.way === "key") {
            keyClick(data.key);
        } else {
            let target = null;
            tryVerify(() => target = reader.find(Window.window.contentItem, data.name), 1000, data.name);
            if (data.menu)
                tryCompare(target.menu, "opened", true);
            if (data.way === "reader")
                verify(reader.press(target), "can be pressed");
            else
                mouseClick(target);
        }
        compare(said, 1);
        compare(list.count, 0);
    }

    OrvSelect {
        id: own
        label: "Own"
        y: 300
        width: 200
        current: "a"
        options: [...root.choices, {key: "c" + current, label: "Then " + current}]
        onChosen: key => {
            current = key;
            ++root.said;
        }
    }

    function test_aSelectWhoseChoicesFollowItsChoice_data() {
        return [{tag: "reader", act: item => reader.press(item)}, {tag: "pointer", act: item => mouseClick(item)},
                {tag: "key", act: () => keyClick(Qt.Key_Return)}];
    }

    function test_aSelectWhoseChoicesFollowItsChoice(data) {
        said = 0;
        for (const key of ["b", "a", "b"]) {
            own.open();
            const name = key === "a" ? "Alpha" : "Beta";
            let entry = null;
            tryVerify(() => entry = reader.find(Window.window.contentItem, name), 1000, name);
            if (data.tag === "key") keyClick(name[0]);
            data.act(entry);
            compare(own.current, key);
            tryVerify(() => reader.find(Window.window.contentItem, name) === null, 1000, "the menu has closed");
        }
        compare(said, 3);
    }

    function cleanup() {
        entries = [];
        keyClick(Qt.Key_Escape);
    }
}
