import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    property int running: -1
    property bool more: false
    property int made: 0

    name: "Choices"
    when: windowShown
    visible: true
    width: 400
    height: 300

    Repeater {
        id: boxes
        model: ChoiceList {
            options: [{key: "all", label: "All"}, {key: "running", label: "Running", count: root.running, ticked: root.running > 0}]
                .concat(root.more ? [{key: "draft", label: "Draft"}] : [])
        }

        OrvCheckbox {
            required property choice modelData

            text: modelData.label + (modelData.count >= 0 ? " " + modelData.count : "")
            checked: modelData.ticked
            Component.onCompleted: ++root.made
        }
    }

    OrvSegments {
        id: segments
        y: 100
        options: [{key: "all", label: "All"}, {key: "running", label: "Running", count: root.running}]
        current: "all"
    }

    function init() {
        running = -1;
        more = false;
        made = 0;
    }

    function test_marksLeaveTheItemsAlone() {
        const box = boxes.itemAt(1);
        box.forceActiveFocus();
        verify(box.activeFocus);
        const width = segments.implicitWidth;
        running = 12;
        compare(box.text, "Running 12");
        verify(box.checked && box.activeFocus && box === boxes.itemAt(1));
        compare(made, 0);
        tryVerify(() => segments.implicitWidth > width);
        // Another choice is another list.
        more = true;
        compare(boxes.count, 3);
        compare(made, 3);
        compare(boxes.itemAt(2).text, "Draft");
    }
}
