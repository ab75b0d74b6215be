import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property var kept: []

    name: "TagEditor"
    when: windowShown
    visible: true
    width: 400
    height: 300

    OrvTagEditor {
        id: editor
        width: 348
        label: "Tags"
        tags: root.kept.map(key => ({key: key, label: key.toUpperCase()}))
        suggestions: [{key: "spring", label: "Spring"}, {key: "spam", label: "Spam trap"}, {key: "fleet", label: "Fleet"}]
        onAdded: texts => root.kept = root.kept.concat(texts)
        onRemoved: key => root.kept = root.kept.filter(other => other !== key)
    }

    TextInput { id: other; y: 280 }

    function init() {
        kept = [];
        editor.input.clear();
        editor.input.forceActiveFocus();
    }

    function type(keys) {
        for (const key of keys)
            keyClick(key);
    }

    function test_commaEnterAndLeavingAdd() {
        type("one,two");
        compare(kept, ["one"]);
        keyClick(Qt.Key_Return);
        compare(kept, ["one", "two"]);
        type("three");
        other.forceActiveFocus();
        compare(kept, ["one", "two", "three"]);
    }

    function test_aPastedListIsTakenApart() {
        other.text = "one, two,,three";
        other.selectAll();
        other.copy();
        keyClick(Qt.Key_V, Qt.ControlModifier);
        compare(kept, ["one", "two"].concat(["three"]));
        compare(editor.input.text, "");
    }

    function test_suggestionsAreChosenByKey() {
        type("sp");
        compare(editor.matches.length, 2);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(kept, ["spam"]);
    }

    function test_backspaceTakesTheLastOnce() {
        kept = ["one", "two"];
        type("x");
        keyClick(Qt.Key_Backspace);
        compare(kept, ["one", "two"]);
        keyClick(Qt.Key_Backspace);
        compare(kept, ["one"]);
        verify(editor.input.activeFocus);
    }
}
