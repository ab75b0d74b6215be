import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property string wrong: ""

    name: "Form"
    when: windowShown
    visible: true
    width: 400
    height: 300

    OrvForm {
        id: form
        anchors.fill: parent

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
        wrong = "";
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
