import QtQuick
import QtTest
import Orvella.Design

/// While a modal popup is open, who walks the window without eyes comes to that popup only.
TestCase {
    id: root

    name: "Modal"
    when: windowShown
    visible: true
    width: 800
    height: 600

    ModalPane {
        anchors.fill: parent

        Column {
            OrvButton { text: "Behind" }
            OrvField { label: "Typed behind" }
        }
    }

    OrvDialog {
        id: dialog
        title: "Launch?"
        confirmText: "Launch"
        OrvField { label: "In the dialog" }
    }
    OrvDialog { id: question; title: "Discard?"; confirmText: "Discard" }
    OrvCommandPalette { id: palette; model: ListModel {} }
    OrvDrawer { id: drawer; title: "Lead"; OrvButton { text: "In the drawer" } }

    Component { id: passing; OrvDialog { title: "Passing" } }

    function heard() {
        return reader.heardIn(root);
    }

    function hears(name) {
        return heard().includes(name);
    }

    function init() {
        for (const popup of [question, dialog, palette, drawer])
            popup.close();
        tryCompare(Modals, "depth", 0);
        verify(hears("Behind") && hears("Typed behind"));
    }

    function test_onlyThePopupIsHeard_data() {
        return [{tag: "dialog", popup: dialog, says: "In the dialog"}, {tag: "palette", popup: palette, says: palette.placeholder},
                {tag: "drawer", popup: drawer, says: "In the drawer"}];
    }

    function test_onlyThePopupIsHeard(data) {
        data.popup.open();
        tryCompare(data.popup, "opened", true);
        verify(hears(data.says), heard().join("\n"));
        verify(!hears("Behind") && !hears("Typed behind"), heard().join("\n"));
        verify(!heard().some(name => name.startsWith("a stranger")), heard().join("\n"));
        data.popup.close();
        tryVerify(() => hears("Behind"));
    }

    function test_aQuestionOverADialog() {
        dialog.open();
        question.open();
        tryCompare(question, "opened", true);
        verify(hears("Discard") && !hears("In the dialog") && !hears("Behind"));
        question.close();
        tryVerify(() => hears("In the dialog"));
        verify(!hears("Behind"));
    }

    function test_aDialogThatIsLetGoOpensThePage() {
        const popup = passing.createObject(root);
        popup.open();
        tryVerify(() => !hears("Behind"));
        popup.destroy();
        tryVerify(() => hears("Behind"));
    }
}
