import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    name: "Select"
    when: windowShown
    visible: true
    width: 500
    height: 500

    property int choices: 0
    readonly property list<string> hours: Array.from({length: 48}, (_, i) => String(Math.floor(i / 2)).padStart(2, "0") + (i % 2 ? ":30" : ":00"))

    Component {
        id: times

        OrvSelect {
            y: 230
            width: 144
            times: true
            options: root.hours.map(hour => ({key: hour, label: hour}))
            current: "18:00"
            onChosen: key => {
                ++root.choices;
                current = key;
            }
        }
    }

    property string shortcuts: ""

    // A page's own keys.
    Repeater {
        model: ["b", "o", "n", "x", "/", "?"]

        Item {
            required property string modelData

            Shortcut {
                sequence: modelData
                onActivated: root.shortcuts += modelData
            }
        }
    }

    Component {
        id: names

        OrvSelect {
            width: 144
            options: ["Berlin", "Bern", "Bonn", "New York"].map(name => ({key: name, label: name}))
            current: "Berlin"
            onChosen: key => current = key
        }
    }


    function test_opensOnWhatHolds() {
        choices = 0;
        const select = createTemporaryObject(times, root);
        select.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        const entry = root.Window.window.activeFocusItem;
        compare(reader.nameOf(entry), "18:00");
        const list = entry.ListView.view;
        verify(list.height <= 10 * 30, "ten entries at most");
        const inList = entry.mapToItem(list, 0, 0).y;
        verify(inList >= 90 && inList <= 180, "in the middle, at " + inList);
        const top = list.mapToItem(select, 0, 0).y;
        verify(top >= select.height || top + list.height <= 0, "never over its field");

        // Held for a moment, Enter neither chooses again nor opens again.
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(select.current, "18:30");
        compare(choices, 1);
        verify(!reader.find(root.Window.window.contentItem.parent, "19:00"));
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Space);
        compare(select.current, "18:00");
        compare(choices, 2);
    }

    function test_typing_data() {
        return [
            {tag: "9:30", select: times, typed: "9:30", current: "09:30"},
            {tag: "930", select: times, typed: "930", current: "09:30"},
            {tag: "an hour", select: times, typed: "7", current: "07:00"},
            {tag: "eleven", select: times, typed: "11", current: "11:00"},
            {tag: "between", select: times, typed: "9:15", current: "09:00"},
            {tag: "no time", select: times, typed: "99", current: "09:00"},
            {tag: "a word", select: names, typed: "bon", current: "Bonn"},
            {tag: "with a space", select: names, typed: "new y", current: "New York"},
            {tag: "again and again", select: names, typed: "bb", current: "Bonn"},
            {tag: "what begins no choice", select: names, typed: "x/?", current: "Berlin", shortcuts: "x/?"},
            {tag: "a slip in a word", select: names, typed: "box/n", current: "Bonn", shortcuts: "/"},
            {tag: "the other keys of times", select: times, typed: "9/", current: "09:00", shortcuts: "/"}
        ];
    }
    function test_typing(data) {
        // On the control, and in its menu.
        for (const open of [false, true]) {
            const select = createTemporaryObject(data.select, root);
            select.forceActiveFocus(Qt.TabFocusReason);
            shortcuts = "";
            if (open)
                keyClick(Qt.Key_Down);
            for (const letter of data.typed)
                keyClick(letter);
            if (open)
                keyClick(Qt.Key_Return);
            compare(select.current, data.current, open ? "menu" : "control");
            compare(shortcuts, open ? "" : data.shortcuts ?? "");
            select.destroy();
        }
    }
}
