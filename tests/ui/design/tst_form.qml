import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property string wrong: ""
    property string problem: ""
    property string tone: "negative"

    name: "Form"
    when: windowShown
    visible: true
    width: 400
    height: 300

    OrvButton {
        id: outside
        y: 300
        text: "Save"
    }

    OrvForm {
        id: form
        anchors.fill: parent

        OrvNotice {
            id: notice
            width: parent.width
            visible: text !== ""
            tone: root.tone
            text: root.problem
        }

        OrvCheckbox {
            id: tick
            text: "Tick"
        }

        Item {
            id: unfolded
            width: 1
            height: 100
        }

        Repeater {
            model: 8

            Column {
                required property int index
                width: parent.width

                OrvField {
                    objectName: "field" + parent.index
                    width: parent.width
                    label: "Field " + parent.index
                    error: root.wrong === objectName ? "This one is wrong. ".repeat(20) : ""
                }
            }
        }
    }

    function bottomOf(item) {
        return item.mapToItem(form, 0, item.height).y;
    }

    function init() {
        wrong = problem = "";
        unfolded.visible = false;
        Announcer.waiting = [];
        tick.checked = false;
        outside.forceActiveFocus(Qt.TabFocusReason);
        form.reveal(findChild(form, "field0"));
        waitForRendering(form);
    }

    function isSeen(item) {
        return item.visible && item.mapToItem(form, 0, 0).y >= 0 && bottomOf(item) <= form.height;
    }

    function test_whatIsSaidOfTheWholeComesIntoSight_data() {
        return [
            {tag: "a save that failed", tone: "negative", writing: true, seen: true},
            {tag: "beside a field that is shown as wrong", tone: "negative", wrong: "field7", seen: false},
            {tag: "news", tone: "warning", seen: true},
            {tag: "news while somebody writes", tone: "warning", writing: true, seen: false}
        ];
    }

    function test_whatIsSaidOfTheWholeComesIntoSight(data) {
        const field = findChild(form, "field7");
        form.reveal(field);
        if (data.writing)
            field.forceActiveFocus(Qt.TabFocusReason);
        waitForRendering(form);
        tone = data.tone;
        problem = "The service said no.";
        if (data.wrong) {
            wrong = data.wrong;
            form.showWrong(null);
        }
        tryVerify(() => Announcer.waiting.some(told => told.text === problem));
        waitForRendering(form);
        compare(isSeen(notice), data.seen);
        compare(isSeen(field), !data.seen);
    }

    function test_whoWritesOnIsNotLedBackToWhatWasSaid() {
        const field = findChild(form, "field7");
        field.forceActiveFocus(Qt.TabFocusReason);
        tone = "negative";
        problem = "The service said no.";
        tryVerify(() => isSeen(notice));
        keyClick("a");
        unfolded.visible = true;
        waitForRendering(form);
        verify(isSeen(field));
    }

    function test_theScrollBarLeavesBehindWhatWasFollowed() {
        findChild(form, "field0").forceActiveFocus(Qt.TabFocusReason);
        mouseDrag(form, form.width - 4, 10, 0, 200);
        const at = Math.round(form.contentY);
        verify(at > 100);
        unfolded.visible = true;
        waitForRendering(form);
        compare(Math.round(form.contentY), at);
    }

    function test_keysScroll() {
        const first = findChild(form, "field0");
        first.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_PageDown);
        verify(!isSeen(first));
        unfolded.visible = true;
        waitForRendering(form);
        verify(!isSeen(first));
        keyClick(Qt.Key_PageUp);
        verify(isSeen(first));
        tick.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_End);
        verify(isSeen(findChild(form, "field7")));
        keyClick(Qt.Key_Home);
        verify(isSeen(tick));
    }

    function test_nothingMovesUnderThePointer() {
        form.reveal(findChild(form, "field2"));
        waitForRendering(form);
        verify(!isSeen(tick));
        // Half of it is there.
        mouseClick(tick, 5, tick.height - 5);
        verify(tick.checked);
        verify(!isSeen(tick));

        const at = form.contentY;
        unfolded.visible = true;
        waitForRendering(form);
        compare(form.contentY, at);
    }

    function test_theFirstWrongFieldIsInSightWithItsMessage_data() {
        return [{tag: "below", at: "field5"}, {tag: "last", at: "field7"}, {tag: "above", at: "field0"}];
    }

    function test_theFirstWrongFieldIsInSightWithItsMessage(data) {
        const field = findChild(form, data.at);
        const height = field.height;
        wrong = data.at;
        form.showWrong(null);
        verify(field.activeFocus);
        tryVerify(() => field.height > height + 80);
        waitForRendering(form);
        verify(bottomOf(field) <= form.height, "the message is at " + bottomOf(field));
        verify(field.mapToItem(form, 0, 0).y >= 0);
    }
}
