import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property string kept: ""
    property var sent: []

    name: "CodeField"
    when: windowShown
    width: 400
    height: 100

    // As the sign-in screen has it: what is typed is kept outside, and goes out at six digits.
    OrvCodeField {
        id: field
        width: 348
        text: root.kept
        onEdited: (text, whole) => {
            root.kept = text;
            if (whole) root.sent = root.sent.concat([text]);
        }
    }

    TextInput { id: clipboard }

    function init() {
        kept = "";
        sent = [];
        field.forceActiveFocus();
    }

    function type(digits) {
        for (const digit of digits)
            keyClick(digit);
    }

    function paste(text) {
        clipboard.text = text;
        clipboard.selectAll();
        clipboard.copy();
        keyClick(Qt.Key_V, Qt.ControlModifier);
    }

    function test_aRefusedCodeIsTypedAnew() {
        type("123456");
        type("654");
        compare(kept, "654");
        compare(sent, ["123456"], "what was refused does not go out again");
        type("321");
        compare(sent, ["123456", "654321"]);
        keyClick(Qt.Key_Backspace);
        keyClick(Qt.Key_Left);
        type("9");
        compare(kept, "654329");
        keyClick(Qt.Key_X);
        compare(sent.length, 3);
    }

    function test_aPastedCodeMayComeInASentence() {
        paste("Your code is 123 456.");
        compare(sent, ["123456"]);
        paste("654-321");
        compare(sent, ["123456", "654321"]);
    }

    function test_theFieldFollowsWhatIsKept() {
        paste("123 456");
        kept = "";
        type("1");
        compare(kept, "1", "a new code begins with an empty field");
    }
}
