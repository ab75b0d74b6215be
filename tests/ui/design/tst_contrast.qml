import QtQuick
import QtTest
import Orvella.Design

/// What is drawn can be told from its ground: words at 4.5 to 1, marks and outlines at 3 to 1.
TestCase {
    id: root

    name: "Contrast"
    when: windowShown
    visible: true
    width: 600
    height: 300

    readonly property list<choice> choices: [{key: "a", label: "Alpha", count: 3000}, {key: "b", label: "Beta"}]

    function init() {
        Theme.reducedMotion = true;
    }
    function cleanup() {
        Theme.reducedMotion = false;
        Theme.dark = false;
    }

    // Inks, the grounds that they stand on somewhere, and what is asked of them.
    readonly property var pairs: [
        {inks: ["text", "text2", "text3"], grounds: ["bg", "surface", "raised", "sunken", "hover", "pressed", "selected"], least: 4.5},
        {inks: ["text", "text2"], grounds: ["positiveSubtle", "warningSubtle", "negativeSubtle", "neutralSubtle", "accentSubtle"], least: 4.5},
        {inks: ["accentText"], grounds: ["bg", "surface", "raised", "hover", "selected", "accentSubtle"], least: 4.5},
        {inks: ["positive", "warning", "negative", "neutral"], grounds: ["bg", "surface", "raised", "hover", "selected"], least: 4.5},
        {inks: ["positive"], grounds: ["positiveSubtle"], least: 4.5},
        {inks: ["warning"], grounds: ["warningSubtle"], least: 4.5},
        {inks: ["negative"], grounds: ["negativeSubtle"], least: 4.5},
        {inks: ["neutral"], grounds: ["neutralSubtle"], least: 4.5},
        {inks: ["inkOnAccent"], grounds: ["accent", "accentHover", "accentPressed", "negativeFill", "negativeHover", "negativePressed"], least: 4.5},
        {inks: ["inkOnTooltip", "toastAction", "toastNegative", "toastPositive"], grounds: ["tooltip"], least: 4.5},
        {inks: ["borderControl"], grounds: ["bg", "surface", "raised", "hover", "selected"], least: 3},
        {inks: ["focus", "accent"], grounds: ["bg", "surface", "raised", "selected"], least: 3, light: true},
        {inks: ["focus"], grounds: ["bg", "surface", "raised", "selected"], least: 3},
        {inks: ["series1", "series2", "series3", "series4"], grounds: ["surface"], least: 3}
    ]

    function test_tokens_data() {
        return [{tag: "light", dark: false}, {tag: "dark", dark: true}];
    }
    function test_tokens(data) {
        Theme.dark = data.dark;
        const faint = [];
        for (const pair of pairs) {
            if (pair.light && data.dark)
                continue;
            for (const ink of pair.inks)
                for (const ground of pair.grounds)
                    if (eye.contrast(Theme[ink], Theme[ground]) < pair.least)
                        faint.push(ink + " on " + ground + " " + eye.contrast(Theme[ink], Theme[ground]).toFixed(2));
        }
        for (let i = 0; i < Theme.avatarInks.length; ++i)
            if (eye.contrast(Theme.avatarInks[i], Theme.avatarGrounds[i]) < 4.5)
                faint.push("avatar " + i);
        compare(faint, []);
    }

    Component { id: primary; OrvButton { text: "Press"; kind: "primary"; iconName: "list-add"; keys: "N"; menuArrow: true } }
    Component { id: secondary; OrvButton { text: "Press"; iconName: "list-add"; keys: "N"; count: 3; menuArrow: true } }
    Component { id: ghost; OrvButton { text: "Press"; kind: "ghost"; iconName: "list-add"; count: 3; menuArrow: true } }
    Component { id: danger; OrvButton { text: "Press"; kind: "danger"; iconName: "edit-delete" } }
    Component { id: link; OrvLink { text: "Press" } }
    Component { id: quiet; OrvLink { text: "Press"; quiet: true } }
    Component { id: countdown; OrvLink { text: "Resend in 30"; enabled: false } }
    Component { id: chip; OrvChip { key: "Key"; value: "Press" } }
    Component { id: exclusion; OrvChip { key: "Key"; value: "Press"; exclusion: true } }
    Component { id: checkbox; OrvCheckbox { text: "Press"; checked: true } }
    Component { id: toggle; OrvSwitch { text: "Press" } }
    Component { id: select; OrvSelect { label: "Press"; options: root.choices; current: "a" } }
    Component { id: segments; OrvSegments { label: "Press"; options: root.choices; current: "a" } }
    Component { id: tabs; OrvTabs { label: "Press"; options: root.choices; current: "a" } }
    Component { id: field; OrvField { label: "Label"; help: "Help"; placeholder: "Placeholder"; width: 200 } }
    Component { id: wrong; OrvField { label: "Label"; error: "Not so"; width: 200 } }

    function test_states_data() {
        const rows = [];
        const made = {primary, secondary, ghost, danger, link, quiet, countdown, chip, exclusion, checkbox, toggle, select, segments, tabs, field, wrong};
        for (const name in made)
            for (const dark of [false, true])
                rows.push({tag: name + (dark ? " dark" : " light"), make: made[name], dark: dark});
        return rows;
    }
    function test_states(data) {
        Theme.dark = data.dark;
        const ground = createTemporaryQmlObject("import QtQuick; import Orvella.Design; Rectangle { anchors.fill: parent; color: Theme.surface }", root);
        const item = createTemporaryObject(data.make, ground, {x: 20, y: 20});
        const faint = state => eye.faint(item).map(fault => state + ": " + fault);
        mouseMove(root, 590, 290);
        const found = faint("at rest");
        mouseMove(item, item.width / 2, item.height / 2);
        found.push(...faint("under the pointer"));
        mousePress(item, item.width / 2, item.height / 2);
        found.push(...faint("pressed"));
        mouseRelease(root, 590, 290);
        compare(found, []);
    }

    Component {
        id: figure

        Rectangle {
            property alias ink: words.color
            property alias text: words.text
            property real cut: 90
            property real shown: 90
            property bool shadowed: false
            anchors.fill: parent
            gradient: Gradient {
                GradientStop { position: 0; color: "#FFFFFF" }
                GradientStop { position: 1; color: shadowed ? "#000000" : "#FFFFFF" }
            }

            Text { id: words; x: 20; y: 2; text: "4"; font.pixelSize: 60 }
            Rectangle { width: 100; height: cut - shown; color: ink }
            Rectangle { y: cut; width: 100; height: 200; color: ink }
        }
    }

    // Under a shadow each line of the ground has another colour, and a stroke more of its own than any of them; of a
    // figure that is cut off at the top and bottom, strokes may be all that is left.
    function test_the_ground_is_found() {
        const item = createTemporaryObject(figure, root, {ink: Theme.text, shadowed: true});
        compare(eye.faint(item), []);
        item.shadowed = false;
        item.text = "—";
        for (item.shown = 4; item.shown < 9; ++item.shown)
            for (item.cut = item.shown; item.cut < 80; ++item.cut)
                compare(eye.faint(item), [], item.shown + " above " + item.cut);
        item.cut = item.shown = 90;
        for (item.shadowed of [false, true]) {
            item.ink = "#CCCCCC";
            compare(eye.faint(item).length, 1);
        }
    }
}
