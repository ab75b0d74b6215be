import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    name: "Popups"
    when: windowShown
    width: 800
    height: 600
    visible: true

    property var log: []

    Rectangle {
        id: opener
        x: 700
        y: 20
        width: 60
        height: 30
        activeFocusOnTab: true
    }

    OrvMenu {
        id: menu
        title: "Campaign"
        OrvMenuItem { text: "Rename"; onTriggered: root.log.push("rename") }
        OrvMenuItem { text: "Pause"; enabled: false }
        OrvMenuItem { text: "Duplicate"; onTriggered: root.log.push("duplicate") }
        OrvMenuSeparator {}
        OrvMenuItem { text: "Delete"; danger: true; onTriggered: root.log.push("delete") }
    }

    OrvDialog {
        id: dialog
        title: "Delete it?"
        onConfirmed: root.log.push("confirmed")
        onCancelled: root.log.push("cancelled")
    }

    OrvButton { id: asker; text: "Ask"; onClicked: { root.log.push("asked"); dialog.open(); } }
    OrvLink { id: askingLink; x: 100; text: "Ask"; onClicked: { root.log.push("asked"); dialog.open(); } }
    OrvButton { id: namer; x: 200; text: "Name"; onClicked: { root.log.push("asked"); longDialog.open(); } }

    OrvDialog {
        id: longDialog
        title: "Add an account"
        initialFocus: firstField
        confirmText: "Add"
        onConfirmed: root.log.push("confirmed")

        OrvField {
            id: firstField
            width: parent.width
            label: "First"
            onAccepted: root.log.push("accepted")
        }

        Repeater {
            model: 12

            OrvField {
                width: parent.width
                label: "Another"
            }
        }
    }

    ListModel { id: results }

    OrvCommandPalette {
        id: palette
        model: results
        onChosen: id => root.log.push(id)
        onQueryEdited: text => root.log.push("query " + text)
    }

    ListModel { id: toasts }

    OrvToastStack {
        id: stack
        anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
        model: toasts
        onActionRequested: id => root.log.push("act " + id)
        onCloseRequested: id => root.log.push("close " + id)
    }

    OrvStateView {
        id: view
        width: 400
        height: 300
        errorTitle: "Couldn’t load campaigns"
        emptyTitle: "No campaigns yet"
        onRetryRequested: root.log.push("retry")

        Rectangle { id: content; anchors.fill: parent }
    }

    function init() {
        menu.close();
        dialog.close();
        longDialog.close();
        palette.close();
        tryCompare(longDialog, "visible", false);
        tryCompare(menu, "visible", false);
        tryCompare(dialog, "visible", false);
        tryCompare(palette, "visible", false);
        dialog.destructive = false;
        dialog.typedWord = "";
        dialog.busy = false;
        dialog.confirmEnabled = true;
        toasts.clear();
        opener.forceActiveFocus();
        log = [];
    }

    function open(popup) {
        popup.open();
        tryCompare(popup, "opened", true);
    }

    function press(keys) {
        for (const key of keys)
            keyClick(key);
    }

    function test_menuKeys_data() {
        return [
            {tag: "first", keys: [Qt.Key_Return], said: ["rename"]},
            {tag: "skips what is off and the line", keys: [Qt.Key_Down, Qt.Key_Down, Qt.Key_Return], said: ["delete"]},
            {tag: "wraps down", keys: [Qt.Key_Down, Qt.Key_Down, Qt.Key_Down, Qt.Key_Return], said: ["rename"]},
            {tag: "wraps up", keys: [Qt.Key_Up, Qt.Key_Return], said: ["delete"]},
            {tag: "home and end", keys: [Qt.Key_End, Qt.Key_Home, Qt.Key_End, Qt.Key_Return], said: ["delete"]},
            {tag: "first letter", keys: [Qt.Key_D, Qt.Key_Return], said: ["duplicate"]},
            {tag: "first letter again", keys: [Qt.Key_D, Qt.Key_D, Qt.Key_Return], said: ["delete"]},
            {tag: "escape", keys: [Qt.Key_Down, Qt.Key_Escape], said: []},
        ];
    }

    function test_menuKeys(data) {
        menu.openAt(opener, true);
        tryCompare(menu, "opened", true);
        press(data.keys);
        compare(log, data.said);
        tryCompare(menu, "visible", false);
        verify(opener.activeFocus, "the focus is back");
    }

    function test_menuStaysInTheWindow_data() {
        return [{tag: "top", y: 20, below: true}, {tag: "bottom", y: 560, below: false}];
    }

    function test_menuStaysInTheWindow(data) {
        opener.y = data.y;
        menu.openAt(opener, true);
        tryCompare(menu, "opened", true);
        const corner = menu.contentItem.mapToItem(null, 0, 0);
        compare(corner.y > opener.y, data.below);
        verify(corner.x + menu.width <= root.width);
        verify(corner.y >= 0 && corner.y + menu.height <= root.height + 8);
        menu.close();
        opener.y = 20;
    }

    function test_dialogKeys_data() {
        return [
            {tag: "enter confirms", keys: [Qt.Key_Return], said: ["confirmed"]},
            {tag: "escape cancels", keys: [Qt.Key_Escape], said: ["cancelled"]},
            {tag: "enter cancels where the verb destroys", set: {destructive: true}, keys: [Qt.Key_Return], said: ["cancelled"]},
            {tag: "no second time while busy", set: {busy: true}, keys: [Qt.Key_Return], said: []},
            {tag: "closes while busy", set: {busy: true}, keys: [Qt.Key_Escape], said: ["cancelled"]},
            {tag: "an unready form", set: {confirmEnabled: false}, keys: [Qt.Key_Return], said: []},
            {tag: "the word is missing", set: {typedWord: "GO"}, keys: ["G", Qt.Key_Return], said: []},
            {tag: "the word in another case", set: {typedWord: "GO"}, keys: ["g", "o", Qt.Key_Return], said: []},
            {tag: "the word", set: {typedWord: "GO"}, keys: ["G", "O", Qt.Key_Return], said: ["confirmed"]},
        ];
    }

    function test_dialogKeys(data) {
        for (const name in data.set ?? {})
            dialog[name] = data.set[name];
        open(dialog);
        press(data.keys);
        compare(log, data.said);
        dialog.close();
        tryCompare(dialog, "visible", false);
        verify(opener.activeFocus, "the focus is back");
    }

    function test_aHeldKeyAnswersNothing_data() {
        return [
            {tag: "a button", item: asker, asks: dialog, key: Qt.Key_Return, confirms: ["confirmed"]},
            {tag: "a button, by space", item: asker, asks: dialog, key: Qt.Key_Space, confirms: ["confirmed"]},
            {tag: "a link", item: askingLink, asks: dialog, key: Qt.Key_Return, confirms: ["confirmed"]},
            {tag: "a form", item: namer, asks: longDialog, key: Qt.Key_Return, confirms: ["accepted", "confirmed"]}
        ];
    }

    function test_aHeldKeyAnswersNothing(data) {
        data.item.forceActiveFocus(Qt.TabFocusReason);
        keyPress(data.key);
        hand.hold(root, data.key);
        keyRelease(data.key);
        compare(log, ["asked"]);
        tryCompare(data.asks, "opened", true);
        hand.hold(root, data.key);
        compare(log, ["asked"]);
        keyClick(Qt.Key_Return);
        compare(log, ["asked", ...data.confirms]);
    }

    function isSeen(item) {
        let pane = item;
        while (!(pane instanceof ScrollPane)) pane = pane.parent;
        const y = item.mapToItem(pane, 0, 0).y;
        return y >= 0 && y + item.height <= pane.height;
    }

    function test_aLongDialogFollows() {
        open(longDialog);
        let walked = 0;
        do {
            keyClick(Qt.Key_Tab);
            ++walked;
            verify(!(Window.activeFocusItem instanceof TextInput) || isSeen(Window.activeFocusItem), "field " + walked);
        } while (Window.activeFocusItem instanceof TextInput);
        compare(walked, 13);
        // From its buttons.
        verify(!isSeen(firstField));
        keyClick(Qt.Key_Home);
        verify(isSeen(firstField));
        keyClick(Qt.Key_PageDown);
        verify(!isSeen(firstField));
        keyClick(Qt.Key_Home);
        longDialog.error = "The service said no.";
        const error = reader.find(root.Window.window.contentItem, longDialog.error);
        tryVerify(() => isSeen(error));
    }

    function test_dialogKeepsTheFocus() {
        open(dialog);
        for (let i = 0; i < 6; ++i) {
            keyClick(Qt.Key_Tab);
            verify(!opener.activeFocus && !stack.activeFocus);
        }
    }

    function fillPalette() {
        results.clear();
        results.append({group: "Pages", title: "Campaigns", subtitle: "", iconName: "", chord: "G C"});
        results.append({group: "Actions", title: "New campaign", subtitle: "Campaigns", iconName: "", chord: "N"});
        results.append({group: "Workspaces", title: "Caldera", subtitle: "caldera", iconName: "", chord: ""});
    }

    function test_paletteKeys_data() {
        return [
            {tag: "first", keys: [Qt.Key_Return], said: [0]},
            {tag: "down", keys: [Qt.Key_Down, Qt.Key_Return], said: [1]},
            {tag: "wraps up", keys: [Qt.Key_Up, Qt.Key_Return], said: [2]},
            {tag: "page down stops", keys: [Qt.Key_PageDown, Qt.Key_PageDown, Qt.Key_Return], said: [2]},
            {tag: "typing", keys: ["c", "a", Qt.Key_Escape], said: ["query c", "query ca"]},
        ];
    }

    function test_paletteKeys(data) {
        palette.query = "";
        fillPalette();
        open(palette);
        press(data.keys);
        compare(log, data.said);
        tryCompare(palette, "visible", false);
        verify(opener.activeFocus, "the focus is back");
    }

    function test_paletteWithNothing() {
        results.clear();
        open(palette);
        keyClick(Qt.Key_Return);
        compare(log, []);
        compare(palette.resultText, "0 results");
        fillPalette();
        compare(palette.currentIndex, 0);
    }

    function test_toasts() {
        toasts.append({toastId: "t1", message: "Link copied", detail: "", tone: "standard", actionLabel: ""});
        toasts.append({toastId: "t2", message: "Deleted", detail: "", tone: "standard", actionLabel: "Undo"});
        verify(!stack.held);
        stack.toggleFocus();
        verify(stack.held, "time stands still while the focus is there");
        keyClick(Qt.Key_Return);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Escape);
        compare(log, ["act t2", "close t1"]);
        stack.toggleFocus();
        verify(opener.activeFocus);
    }

    function test_toastThatGoesGivesTheFocusBack() {
        toasts.append({toastId: "t1", message: "Link copied", detail: "", tone: "standard", actionLabel: ""});
        stack.toggleFocus();
        toasts.clear();
        tryCompare(opener, "activeFocus", true);
    }

    function test_toastsAreAnsweredByMouseAndByKeyboard() {
        toasts.append({toastId: "t1", message: "Link copied", detail: "", tone: "standard", actionLabel: ""});
        toasts.append({toastId: "t2", message: "Deleted", detail: "", tone: "standard", actionLabel: "Undo"});
        const undo = findByText(stack, "Undo");
        mouseClick(undo);
        compare(log, ["act t2"]);
        verify(opener.activeFocus, "a click leaves the focus where the person works");

        stack.toggleFocus();
        verify(stack.activeFocus);
        toasts.remove(1);
        keyClick(Qt.Key_Escape);
        compare(log, ["act t2", "close t1"], "the one that is left has the keys");
        toasts.remove(0);
        verify(!stack.held, "nothing is held when nothing is there");
        verify(opener.activeFocus);
    }

    function findByText(item, text) {
        if (item.text === text && item.clicked)
            return item;
        for (let i = 0; i < item.children.length; ++i) {
            const found = findByText(item.children[i], text);
            if (found)
                return found;
        }
        return null;
    }

    function test_stateView_data() {
        return [
            {tag: "loading", status: "loading", hasContent: false, shown: false},
            {tag: "ready", status: "ready", hasContent: true, shown: true},
            {tag: "offline with data", status: "offline", hasContent: true, shown: true, says: "You’re offline. Showing saved data."},
            {tag: "offline without", status: "offline", hasContent: false, shown: false, says: "Try again"},
            {tag: "error", status: "error", hasContent: false, shown: false, says: "Couldn’t load campaigns"},
            {tag: "empty", status: "empty", hasContent: false, shown: false, says: "No campaigns yet"},
        ];
    }

    function says(item, text) {
        if (!item.visible)
            return false;
        if (item.text === text)
            return true;
        for (let i = 0; i < item.children.length; ++i) {
            if (says(item.children[i], text))
                return true;
        }
        return false;
    }

    function test_stateView(data) {
        view.hasContent = data.hasContent;
        view.status = data.status;
        compare(content.visible, data.shown);
        if (data.says)
            verify(says(view, data.says), data.says);
    }

    function test_skeletonWaits() {
        view.hasContent = true;
        view.status = "ready";
        const skeleton = createTemporaryObject(skeletonComponent, root);
        verify(!skeleton.shown, "an answer that comes at once flashes nothing");
        tryCompare(skeleton, "shown", true);
    }

    Component {
        id: skeletonComponent
        OrvSkeleton { width: 200; height: 200 }
    }
}
