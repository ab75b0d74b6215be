import QtQuick
import QtTest
import Orvella.Design

/// A shadow that no edge can be seen in.
TestCase {
    id: root

    name: "Float"
    when: windowShown
    visible: true
    width: 400
    height: 300

    Rectangle { anchors.fill: parent; color: Theme.surface }
    OrvFloat { id: panel; x: 120; y: 80; width: 160; height: 120; radius: 10 }

    function cleanup() {
        Theme.dark = false;
    }

    function test_itFadesWithoutSteps_data() {
        return [{tag: "light, to the left", x: -1, y: 0}, {tag: "light, below", x: 0, y: 1},
                {tag: "light, over the corner", x: 1, y: 1}, {tag: "dark, above", x: 0, y: -1, dark: true}];
    }

    function test_itFadesWithoutSteps(data) {
        Theme.dark = data.dark ?? false;
        const picture = grabImage(root);
        const ground = picture.red(2, 2);
        let x = panel.x + (data.x < 0 ? -1 : data.x > 0 ? panel.width : panel.width / 2);
        let y = panel.y + (data.y < 0 ? -1 : data.y > 0 ? panel.height : panel.height / 2);
        const darkest = picture.red(x, y);
        verify(ground - darkest >= 3, "there is a shadow, " + ground + " to " + darkest);
        let before = darkest;
        for (; x > 1 && y > 1 && x < root.width - 1 && y < root.height - 1; x += data.x, y += data.y) {
            const now = picture.red(x, y);
            verify(now >= before && now - before <= 3, "from " + before + " to " + now + " at " + x + ", " + y);
            before = now;
        }
        compare(before, ground);
    }
}
