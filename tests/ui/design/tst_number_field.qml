import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property int days: 2
    property string cap: ""
    property var edits: []

    name: "NumberField"
    when: windowShown
    visible: true
    width: 400
    height: 200

    OrvNumberField {
        id: wait
        label: "Wait"
        from: 1
        to: 30
        value: root.days
        rangeError: "1 to 30 days"
        onEdited: number => {
            root.edits = root.edits.concat([number]);
            root.days = number;
        }
    }

    OrvNumberField {
        id: limit
        y: 80
        label: "Limit"
        from: 1
        to: 500
        clearable: true
        keepsText: true
        text: root.cap
        rangeError: "1 to 500"
        onTyped: text => root.cap = text
    }

    function init() {
        wait.forceActiveFocus();
        days = 3;
        days = 2;
        cap = "";
        edits = [];
    }

    function type(keys) {
        wait.input.selectAll();
        for (const key of keys)
            keyClick(key);
    }

    function test_whatIsShownIsNotSentBack() {
        days = 14;
        compare(wait.text, "14");
        days = 45;
        compare(wait.text, "45", "what lies outside the bounds is shown all the same");
        compare(edits, []);
    }

    function test_theArrowsStepWithinTheBounds() {
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        compare(edits, [3, 2, 1]);
        compare(wait.text, "1");
        days = 45;
        keyClick(Qt.Key_Up);
        compare(wait.text, "30", "a step leads back inside");
        days = 7;
        compare(wait.text, "7", "the field still follows");
    }

    function test_buttonsStep() {
        mouseClick(wait, wait.width - 10, 37);
        mouseClick(wait, 10, 37);
        compare(edits, [3, 2]);
    }

    function test_aNumberBeyondTheBoundsCountsAsTheNearest() {
        type("31");
        compare(edits, [3, 30]);
        compare(wait.text, "31", "what is being typed stays");
        compare(wait.error, "1 to 30 days");
        limit.forceActiveFocus();
        compare(wait.text, "30");
        compare(wait.error, "");
        wait.forceActiveFocus();
        type("0");
        compare(days, 1);
        type("x");
        compare(days, 1, "what is no number is not taken");
        limit.forceActiveFocus();
        compare(wait.text, "1", "the last number comes back");
    }

    function test_aFormKeepsWhatIsTyped() {
        limit.forceActiveFocus();
        compare(limit.error, "");
        for (const key of "501")
            keyClick(key);
        wait.forceActiveFocus();
        compare(cap, "501");
        compare(limit.error, "1 to 500");
        cap = "20";
        compare(limit.text, "20", "the field follows its form");
        limit.forceActiveFocus();
        keyClick(Qt.Key_Down);
        compare(cap, "19");
        cap = "";
        compare(limit.text, "", "after a step as well");
        keyClick(Qt.Key_Up);
        compare(cap, "1", "an empty field steps to where its numbers begin");
    }
}
