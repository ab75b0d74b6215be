import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property string kept: ""
    property var edits: []

    name: "DateField"
    when: windowShown
    visible: true
    width: 500
    height: 500

    OrvDateField {
        id: field
        width: 208
        label: "Start date"
        text: root.kept
        onEdited: text => {
            root.edits = root.edits.concat([text]);
            root.kept = text;
        }
    }

    TextInput { id: other; y: 400 }

    function init() {
        field.first = "";
        field.last = "";
        field.problem = "";
        kept = "";
        edits = [];
        field.input.forceActiveFocus();
    }

    function cell() {
        return root.Window.window.activeFocusItem;
    }

    function open() {
        keyClick(Qt.Key_Down);
        tryVerify(() => cell() && cell().day !== undefined);
    }

    function press(keys) {
        for (const key of keys)
            keyClick(key[0] ?? key, key[1] ?? Qt.NoModifier);
    }

    function test_typingIsStrict_data() {
        return [
            {tag: "a day", text: "2026-11-21", day: "2026-11-21"},
            {tag: "space around", text: " 2026-11-21 ", day: "2026-11-21"},
            {tag: "a leap day", text: "2028-02-29", day: "2028-02-29"},
            {tag: "no such day", text: "2026-02-29", error: true},
            {tag: "no day in any order", text: "21-21-2026", error: true},
            {tag: "without zeroes", text: "2026-1-2", error: true},
            {tag: "more behind it", text: "2026-11-21T10", error: true},
            {tag: "nothing", text: ""},
        ];
    }

    function test_typingIsStrict(data) {
        for (const letter of data.text)
            keyClick(letter);
        compare(field.day, data.day ?? "");
        compare(field.error, "", "nothing is wrong while it is typed");
        other.forceActiveFocus();
        compare(field.error, data.error ? "Write the date as YYYY-MM-DD" : "");
        compare(kept, data.text);
        field.problem = "The end is before the start";
        compare(field.error, "The end is before the start");
    }

    function test_shorthandBecomesItsDay_data() {
        const today = DateText.today();
        const nextNewYear = (Number(today.slice(0, 4)) + 1) + "-01-01";
        return [
            {tag: "tomorrow", text: "Tomorrow", day: DateText.plusDays(today, 1)},
            {tag: "days on", text: "+7", day: DateText.plusDays(today, 7)},
            {tag: "with its year", text: "3.3.2031", day: "2031-03-03"},
            {tag: "a short year", text: "3/3/31", day: "2031-03-03"},
            {tag: "the next such day", text: "1.1.", day: today.slice(5) === "01-01" ? today : nextNewYear},
            {tag: "a day that few years have", text: "29-2", day: "2028-02-29"},
        ];
    }

    function test_shorthandBecomesItsDay(data) {
        for (const letter of data.text)
            keyClick(letter);
        compare(kept, data.text, "nothing is changed under the caret");
        keyClick(Qt.Key_Return);
        compare(kept, data.day);
        compare(field.day, data.day);
    }

    function test_theCalendarIsWalkedByKeys_data() {
        return [
            {tag: "the day it opens at", keys: [], to: "2026-11-21"},
            {tag: "days", keys: [Qt.Key_Right, Qt.Key_Right, Qt.Key_Left], to: "2026-11-22"},
            {tag: "weeks, into the next month", keys: [Qt.Key_Down, Qt.Key_Down], to: "2026-12-05"},
            {tag: "weeks back", keys: [Qt.Key_Up], to: "2026-11-14"},
            {tag: "months", keys: [Qt.Key_PageDown, Qt.Key_PageDown], to: "2027-01-21"},
            {tag: "to a shorter month", at: "2026-03-31", keys: [Qt.Key_PageUp], to: "2026-02-28"},
            {tag: "years", keys: [[Qt.Key_PageUp, Qt.ShiftModifier]], to: "2025-11-21"},
            {tag: "the week's ends", keys: [Qt.Key_Home, Qt.Key_Home, Qt.Key_End], span: 6},
            {tag: "no further than the last", last: "2026-11-23", keys: [Qt.Key_Down], to: "2026-11-23"},
            {tag: "no further than the first", first: "2026-11-20", keys: [Qt.Key_PageUp], to: "2026-11-20"},
        ];
    }

    function test_theCalendarIsWalkedByKeys(data) {
        kept = data.at ?? "2026-11-21";
        field.first = data.first ?? "";
        field.last = data.last ?? "";
        open();
        press(data.keys);
        if (data.span) {
            const end = cell().day;
            keyClick(Qt.Key_Home);
            const start = cell().day;
            verify(start <= "2026-11-21" && end >= "2026-11-21");
            compare((new Date(end) - new Date(start)) / 86400000, data.span);
            keyClick(Qt.Key_Escape);
            return;
        }
        compare(cell().day, data.to);
        compare(edits, []);
        keyClick(Qt.Key_Return);
        compare(kept, data.to);
        compare(edits, [data.to]);
        tryVerify(() => field.input.activeFocus, 1000, "the focus is back");
        kept = "2020-01-01";
        compare(field.text, "2020-01-01", "the field still follows its form");
    }

    function test_escapeLeavesTheTextAlone() {
        kept = "2026-11-21";
        open();
        press([Qt.Key_Right, Qt.Key_Escape]);
        compare(kept, "2026-11-21");
        tryVerify(() => field.input.activeFocus);
    }

    function test_whatAReaderHears() {
        kept = "2026-11-21";
        open();
        compare(reader.nameOf(cell()).replace(", today", ""), "Saturday 21 November 2026");
        keyClick(Qt.Key_Right);
        compare(reader.nameOf(cell()).replace(", today", ""), "Sunday 22 November 2026");
        verify(reader.press(reader.find(root.Window.window.contentItem, "Monday 30 November 2026")));
        compare(kept, "2026-11-30");
    }

    function test_thePointerPicks() {
        kept = "2026-11-21";
        mouseClick(reader.find(field, "Calendar for Start date"));
        let after = null;
        tryVerify(() => after = reader.find(root.Window.window.contentItem, "Month after"));
        mouseClick(after);
        mouseClick(reader.find(root.Window.window.contentItem, "Thursday 24 December 2026"));
        compare(kept, "2026-12-24");
    }

    function test_whatLiesOutsideCannotBePicked() {
        kept = "2026-11-21";
        field.first = "2026-11-20";
        open();
        const before = reader.find(root.Window.window.contentItem, "Thursday 19 November 2026");
        mouseClick(before);
        reader.press(before);
        compare(edits, []);
        keyClick(Qt.Key_Escape);
        kept = "2026-11-19";
        other.forceActiveFocus();
        compare(field.error, "Not before 2026-11-20");
    }
}
