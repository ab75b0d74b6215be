import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    name: "SecretField"
    when: windowShown
    visible: true
    width: 400
    height: 200

    OrvField {
        id: password
        width: 300
        secret: true
        label: "Password"
    }

    OrvField {
        id: plain
        y: 80
        width: 300
        label: "Name"
        text: "Ada"
    }

    function test_readers_hear_bullets() {
        reader.listen();
        password.forceActiveFocus();
        for (const letter of "hunter2")
            keyClick(letter);
        compare(password.text, "hunter2");
        const bullets = "•••••••";
        compare(reader.textOf(password.input), bullets);
        compare(reader.nameOf(password.input), "Password");
        password.selectAll();
        compare(reader.selectedIn(password.input), bullets);
        keyClick(Qt.Key_Backspace);
        compare(reader.textOf(password.input), "");
        const said = reader.heard();
        verify(!/[hunter2]/.test(said), said);

        compare(reader.textOf(plain.input), "Ada");
        verify(reader.heardIn(password).indexOf("Password") >= 0);
        verify(!reader.heardIn(password).some(name => name.startsWith("a stranger's child")));
    }

    // A program could press "Show" by itself before it reads.
    function test_shown_it_is_still_not_read_out() {
        password.text = "hunter2";
        verify(reader.press(reader.find(password, "Show")));
        compare(password.input.echoMode, TextInput.Normal);
        compare(reader.textOf(password.input), "•••••••");
        password.secret = false;
        compare(reader.textOf(password.input), "hunter2");
        password.secret = true;
        compare(reader.textOf(password.input), "•••••••");
        password.text = "";
    }
}
