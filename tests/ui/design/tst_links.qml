import QtQuick
import QtTest
import Orvella.Design

/// A link in little room, and under a key that is held.
TestCase {
    id: root

    name: "Links"
    when: windowShown
    visible: true
    width: 600
    height: 500

    readonly property string longestHost: Array(4).fill("login".repeat(12)).join(".") + ".evil"

    Component { id: link; OrvLink { width: Math.min(implicitWidth, 300) } }

    function test_longestHostIsSeen() {
        const item = createTemporaryObject(link, root, {text: "https://" + longestHost, mostLines: 8});
        verify(item.width <= 300);
        verify(item.contentItem.lineCount > 1);
        verify(!item.contentItem.truncated);
        verify(item.height >= item.contentItem.implicitHeight);
        // What comes after it may be cut, never what it says.
        const path = createTemporaryObject(link, root, {text: "https://" + longestHost + "/" + "a".repeat(1500), mostLines: 8});
        verify(path.contentItem.truncated && path.contentItem.lineCount === 8);
        compare(path.Accessible.name, path.text);
    }

    function test_heldDownItActsOnce_data() {
        return [{tag: "Enter", key: Qt.Key_Return}, {tag: "Space", key: Qt.Key_Space}];
    }
    function test_heldDownItActsOnce(data) {
        let clicks = 0;
        const item = createTemporaryObject(link, root, {text: "Send it again"});
        item.clicked.connect(() => ++clicks);
        item.forceActiveFocus(Qt.TabFocusReason);
        keyPress(data.key);
        hand.hold(root, data.key);
        keyRelease(data.key);
        compare(clicks, 1);
    }

    function test_wordsStayOnOneLine() {
        const item = createTemporaryObject(link, root, {text: "Connect registrar"});
        compare(item.height, 26);
        compare(item.contentItem.lineCount, 1);
    }
}
