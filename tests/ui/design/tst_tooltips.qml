import QtQuick
import QtQuick.Templates as T
import QtTest
import Orvella.Design

/// What has a hint, or is cut, shows it to a pointer that rests on it, also while it is off.
TestCase {
    id: root

    name: "Tooltips"
    when: windowShown
    visible: true
    width: 800
    height: 600

    Column {
        x: 200
        y: 200
        spacing: 40

        OrvButton { id: button; text: "Export"; hint: "Writes a CSV file." }
        OrvButton { id: icon; text: "Refresh"; iconOnly: true; iconName: "view-refresh"; keys: "F5" }
        OrvButton { id: off; text: "Add"; hint: "Only members can add leads."; enabled: false }
        OrvSelect { id: select; hint: "Which leads are shown" }
        OrvHeading { id: cut; width: 80; elide: Text.ElideRight; text: "Founders in the north" }
        OrvCheckbox { id: tick; width: 80; text: "Founders in the north" }
        OrvHeading { id: whole; width: 400; elide: Text.ElideRight; text: "Founders in the north" }
    }

    function shownText() {
        const layer = T.Overlay.overlay;
        for (let i = 0; i < layer.children.length; ++i) {
            const popup = layer.children[i];
            for (let n = 0; n < popup.children.length; ++n) {
                if (popup.visible && popup.children[n].text && popup.opacity === 1)
                    return popup.children[n].text;
            }
        }
        return "";
    }

    function test_hover_data() {
        return [
            {tag: "hint", item: button, says: "Writes a CSV file."},
            {tag: "icon", item: icon, says: "Refresh  F5"},
            {tag: "off", item: off, says: "Only members can add leads."},
            {tag: "select", item: select, says: "Which leads are shown"},
            {tag: "cut text", item: cut, says: "Founders in the north"},
            {tag: "cut tick", item: tick, says: "Founders in the north"},
            {tag: "whole text", item: whole, says: ""},
        ];
    }

    function test_hover(data) {
        mouseMove(root, 2, 2);
        tryVerify(() => shownText() === "");
        mouseMove(data.item, 5, 5);
        mouseMove(data.item, data.item.width / 2, data.item.height / 2);
        if (data.says === "")
            wait(700);
        tryVerify(() => shownText() === data.says, 3000, shownText());
        mouseMove(root, 2, 2);
        tryVerify(() => shownText() === "");
    }
}
