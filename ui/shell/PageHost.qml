import QtQuick
import Orvella.Design
import Orvella.Shell

/// Shows the open page. Another one, another record's or another workspace's is made anew.
FocusScope {
    id: root

    required property AppModel app

    readonly property Router router: app.router
    readonly property var heading: keeper.heading
    /// What is open, and on which page.
    readonly property string title: {
        const name = heading?.text ?? "";
        return name === "" || name === router.title ? router.title : name + " – " + router.title;
    }
    /// Who has lost the keyboard in the page finds it again there.
    readonly property Item focusHeir: keeper.heading

    /// Where the open page is made, and where it is not.
    property Place host: one
    readonly property Place spare: host === one ? other : one
    /// What the page is bound to may go with it: it cannot outlive the turn in which it is left.
    property bool isBound: true
    property WorkspaceSession session: null

    function show() {
        const page = app.openPage;
        spare.empty();
        const stays = !isBound && session !== null && session === app.session;
        host = spare;
        spare.visible = spare.focus = false;
        host.visible = host.focus = true;
        // Taking a page apart takes long enough to be seen where another one is made in the same turn.
        stays ? aside.restart() : spare.empty();
        session = app.session;
        isBound = page.isRecord;
        if (page.view !== "")
            host.setSource("qrc:/qt/qml/" + page.view, { store: page.store, focus: true });
        else
            host.sourceComponent = router.offFeature !== "" ? switchedOff : notBuilt;
    }

    function hasFocus(): bool {
        return activeFocus && !keeper.isNowhere();
    }

    /// By a key that leads to the page, wherever in it the person was.
    function enterAgain() {
        keeper.focusPage(root);
    }

    /// Into what the page is about, from its heading.
    function goIn(event: var): bool {
        const moves = [Qt.Key_Up, Qt.Key_Down, Qt.Key_Left, Qt.Key_Right, Qt.Key_Home, Qt.Key_End, Qt.Key_PageUp, Qt.Key_PageDown];
        return moves.includes(event.key) && keeper.goIn(event.key, event.modifiers);
    }

    /// On from what Tab does not stop at: the toolkit would begin with the window's first control.
    function stepOn(event: var): bool {
        const forward = event.key === Qt.Key_Tab;
        const item = Window.activeFocusItem;
        if (!forward && event.key !== Qt.Key_Backtab || event.modifiers & Qt.ControlModifier || !item || item.activeFocusOnTab)
            return false;
        item.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        return true;
    }

    /// From the page of a record to its list; a text that is being written keeps its Escape.
    function goUp(event: var): bool {
        const writes = Window.activeFocusItem?.cursorPosition !== undefined;
        if (event.key !== Qt.Key_Escape || writes || !app.openPage.isRecord)
            return false;
        router.goUp();
        return true;
    }

    Keys.onPressed: event => {
        // Before anything: what is done may take the page away.
        event.accepted = true;
        if (!stepOn(event) && !goIn(event) && !goUp(event))
            event.accepted = false;
    }

    Component.onCompleted: show()

    FocusKeeper {
        id: keeper
    }

    PageView {
        id: view
    }

    Connections {
        target: root.router

        function onLeaving() {
            root.router.keepView(view.viewOf(root.host.item));
        }
        function onReturned() {
            view.goBackTo(root.host.item, root.router.keptView());
        }
    }

    Connections {
        target: root.app.openPage

        function onChanged() {
            root.show();
        }
    }

    component Place: Loader {
        id: place

        // An address that is the old one would make nothing new.
        function empty() {
            active = false;
            source = "";
            sourceComponent = null;
            active = true;
        }

        width: root.width
        height: root.height
        visible: false
        onLoaded: {
            enter.restart();
            keeper.enter(place.item);
        }
    }

    Place {
        id: one
    }

    Place {
        id: other
    }

    Timer {
        id: aside
        interval: 1
        onTriggered: root.spare.empty()
    }

    NumberAnimation {
        id: enter
        target: root.host
        property: "y"
        from: 8 * root.router.direction
        to: 0
        duration: Theme.pageDuration
        easing.type: Easing.OutCubic
    }

    Component {
        id: switchedOff

        PlainPage {
            title: root.router.title
            iconName: "object-locked"
            heading: title + " is off"
            text: "This workspace has switched it off. An owner or admin can switch it on in the settings."
        }
    }

    Component {
        id: notBuilt

        PlainPage {
            title: root.router.title
            iconName: "chronometer"
            heading: "Not in this build yet"
            text: title + " isn’t part of this build of Orvella."
        }
    }
}
