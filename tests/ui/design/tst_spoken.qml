import QtQuick
import QtTest
import Orvella.Design

/// What each control is to a screen reader that listens, in the live tree: what the source says is not what counts.
TestCase {
    id: root

    name: "Spoken"
    when: windowShown
    visible: true
    width: 600
    height: 500

    readonly property list<choice> choices: [{key: "a", label: "Alpha", count: 3000}, {key: "b", label: "Beta"}]

    Component { id: button; OrvButton { text: "Press" } }
    Component { id: link; OrvLink { text: "Press" } }
    Component { id: chip; OrvChip { key: "Key"; value: "Press" } }
    Component { id: checkbox; OrvCheckbox { text: "Press" } }
    Component { id: toggle; OrvSwitch { text: "Press" } }
    Component { id: select; OrvSelect { label: "Press"; options: root.choices; current: "a"; hint: "Help" } }
    Component { id: segments; OrvSegments { label: "Press"; options: root.choices; current: "a" } }
    Component { id: tabs; OrvTabs { label: "Press"; options: root.choices; current: "a" } }
    Component { id: field; OrvField { label: "Press"; help: "Help" } }
    Component { id: area; OrvTextArea { label: "Press"; help: "Help"; width: 300 } }
    Component { id: number; OrvNumberField { label: "Press"; help: "Help" } }
    Component { id: date; OrvDateField { label: "Press"; help: "Help" } }
    Component { id: tags; OrvTagEditor { label: "Press"; help: "Help"; width: 300 } }

    function test_role_data() {
        return [
            {tag: "button", make: button, name: "Press", role: "Button"},
            {tag: "link", make: link, name: "Press", role: "Button"},
            {tag: "chip", make: chip, name: "Key Press", role: "Button", description: "Remove"},
            {tag: "checkbox", make: checkbox, name: "Press", role: "CheckBox"},
            {tag: "switch", make: toggle, name: "Press", role: "CheckBox"},
            {tag: "select", make: select, name: "Press, Alpha", role: "ComboBox", description: "Help"},
            {tag: "segments", make: segments, name: "Press", role: "Grouping"},
            {tag: "segment", make: segments, name: "Alpha, 3,000", role: "RadioButton"},
            {tag: "tabs", make: tabs, name: "Press", role: "PageTabList"},
            {tag: "tab", make: tabs, name: "Alpha, 3,000", role: "PageTab"},
            {tag: "field", make: field, name: "Press", role: "EditableText", description: "Help"},
            {tag: "area", make: area, name: "Press", role: "EditableText", description: "Help"},
            {tag: "number", make: number, name: "Press", role: "SpinBox", description: "Help"},
            {tag: "date", make: date, name: "Press", role: "EditableText", description: "Help"},
            {tag: "tags", make: tags, name: "Press", role: "EditableText", description: "Help"}
        ];
    }
    function test_role(data) {
        // Before anybody listens, and with somebody listening already.
        for (const before of [true, false]) {
            let item = before ? createTemporaryObject(data.make, root) : null;
            reader.listen();
            item = item ?? createTemporaryObject(data.make, root);
            wait(0);
            const spoken = reader.find(item, data.name);
            verify(spoken, "is called " + data.name);
            const role = reader.roleOf(spoken);
            const description = reader.descriptionOf(spoken);
            reader.heard();
            compare(role, data.role);
            compare(description, data.description ?? "");
            item.destroy();
        }
    }

    /// Tab and segment have the focus themselves: what is heard is which one holds.
    function test_theCurrentOneHasTheFocus_data() {
        return [{tag: "tabs", make: tabs}, {tag: "segments", make: segments}];
    }
    function test_theCurrentOneHasTheFocus(data) {
        const item = createTemporaryObject(data.make, root);
        item.chosen.connect(key => item.current = key);
        item.forceActiveFocus(Qt.TabFocusReason);
        compare(reader.nameOf(root.Window.window.activeFocusItem), "Alpha, 3,000");
        keyClick(Qt.Key_Right);
        compare(item.current, "b");
        compare(reader.nameOf(root.Window.window.activeFocusItem), "Beta");
        keyClick(Qt.Key_Left);
        compare(reader.nameOf(root.Window.window.activeFocusItem), "Alpha, 3,000");
    }

    property var told: []

    OrvVoice {
        id: voice
        onVisibleChanged: {
            if (visible)
                root.told.push(Accessible.name);
        }
    }

    Component { id: suggest; OrvSuggestField { label: "Tag"; suggestions: root.choices } }
    Component { id: bar; OrvSelectionBar {} }
    Component {
        id: messages
        OrvToastStack {
            model: ListModel {
                ListElement { toastId: 1; message: "Couldn’t save"; detail: "Try later."; tone: "error"; actionLabel: "Try again" }
            }
        }
    }

    function test_whatHasNoFocusIsTold_data() {
        return [
            {
                tag: "the suggestion that the arrows come to", make: suggest,
                act: item => {
                    item.forceActiveFocus(Qt.TabFocusReason);
                    keyClick(Qt.Key_Down);
                    keyClick(Qt.Key_Down);
                }, told: ["Beta, 2 of 2"]
            },
            {
                tag: "what is ticked, as it comes to rest", make: bar,
                act: item => {
                    for (let count = 1; count <= 3; ++count)
                        item.count = count;
                }, told: ["3 selected"]
            },
            {
                tag: "that nothing is ticked any more", make: bar,
                act: item => {
                    item.count = 3;
                    tryVerify(() => root.told.length === 1);
                    item.count = 0;
                }, told: ["3 selected", "Nothing selected"]
            },
            {tag: "a message", make: messages, told: ["Error: Couldn’t save Try later. Try again"]}
        ];
    }
    property string problem: ""
    Component { id: notice; Item { OrvNotice { visible: text !== ""; text: root.problem } } }
    Component {
        id: fixedNotice
        Item { OrvNotice { visible: root.problem !== ""; text: "Couldn’t load. " + root.problem } }
    }
    Component {
        id: wrappedNotice
        Item {
            Item {
                id: wrapper
                visible: root.problem !== ""
                OrvNotice { shownBy: wrapper; text: root.problem }
            }
        }
    }
    Component { id: fieldError; Item { FieldError { text: root.problem } } }
    Component { id: wrongField; OrvField { label: "Name"; error: root.problem } }
    Component {
        id: dialog
        Item {
            readonly property alias popup: inner
            OrvDialog { id: inner; title: "Delete?"; warning: "For good."; error: root.problem }
        }
    }
    Component {
        id: unready
        Item {
            readonly property alias popup: inner
            OrvDialog { id: inner; title: "Stages"; problem: root.problem }
        }
    }

    function test_anErrorIsToldAsItAppears_data() {
        return [
            {tag: "notice", make: notice},
            {tag: "notice that is shown", make: fixedNotice, says: "Couldn’t load. It failed."},
            {tag: "notice with something beside it", make: wrappedNotice},
            {tag: "group", make: fieldError}, {tag: "field", make: wrongField, act: item => item.forceActiveFocus()},
            {tag: "dialog", make: dialog, act: item => item.popup.open()},
            {tag: "why it cannot be confirmed", make: unready, act: item => item.popup.open()}
        ];
    }
    function test_anErrorIsToldAsItAppears(data) {
        problem = "";
        told = [];
        const item = createTemporaryObject(data.make, root);
        data.act?.(item);
        if (item.popup)
            tryCompare(item.popup, "opened", true);
        for (let again = 0; again < 2; ++again) {
            problem = "It failed.";
            tryVerify(() => Announcer.waiting.length === 0 && told.length > again);
            problem = "";
        }
        const says = data.says ?? "It failed.";
        compare(told, [says, says]);
        // And what takes its place.
        problem = "It failed.";
        tryVerify(() => Announcer.waiting.length === 0 && told.length > 2);
        problem = "It failed. Twice.";
        tryVerify(() => Announcer.waiting.length === 0 && told.length > 3);
        compare(told.slice(2), [says, says + " Twice."]);
        item.popup?.close();
    }

    /// Nor does whoever hides a page and shows it again hear what is wrong with it once more.
    function test_whatAPageIsMadeWithIsNotTold_data() {
        return [{tag: "notice", make: notice}, {tag: "notice that is shown", make: fixedNotice},
                {tag: "group", make: fieldError}, {tag: "dialog", make: dialog},
                {tag: "notice with something beside it", make: wrappedNotice}];
    }
    function test_whatAPageIsMadeWithIsNotTold(data) {
        problem = "It failed.";
        told = [];
        const item = createTemporaryObject(data.make, root);
        item.popup?.open();
        wait(0);
        item.visible = false;
        wait(0);
        item.visible = true;
        wait(300);
        compare(told, []);
        item.popup?.close();
    }

    function test_whatHasNoFocusIsTold(data) {
        compare(reader.roleOf(voice), "Notification");
        told = [];
        const item = createTemporaryObject(data.make, root);
        data.act?.(item);
        tryVerify(() => Announcer.waiting.length === 0 && told.length > 0);
        // A slow machine takes a while between two keys.
        compare(told.slice(-data.told.length), data.told);
    }
}
