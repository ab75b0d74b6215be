import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// The search over pages, actions and workspaces. A view only: the model (roles `group`, `title`, `subtitle`,
/// `iconName`, `chord`) answers the query. Make it on demand.
T.Popup {
    id: root

    property alias model: list.model
    property alias query: input.text
    property string placeholder: "Search pages, actions and workspaces…"
    property string hint: "Try a page, an action or a workspace name."
    readonly property alias currentIndex: list.currentIndex
    readonly property alias count: list.count
    readonly property string resultText: list.count + (list.count === 1 ? " result" : " results")
    readonly property FocusReturn focusReturn: FocusReturn {}
    readonly property ModalLevel modalLevel: ModalLevel { held: root.visible && root.modal }

    /// What it shows the actions of; empty while it shows everything.
    property string subject: ""
    /// The person went to the current result themselves.
    property bool moved: false

    signal queryEdited(string text)
    signal chosen(int row)
    /// What can be done with the row's is wanted; and everything again.
    signal moreRequested(int row)
    signal backRequested()

    onSubjectChanged: {
        input.text = model.query ?? "";
        moved = false;
        list.currentIndex = 0;
    }

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.min(120, Math.max(16, parent.height - height - 16)) : 0
    width: parent ? Math.min(560, parent.width - 32) : 560
    implicitHeight: contentItem.implicitHeight
    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnPressOutside

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }

    onAboutToShow: {
        focusReturn.remember(parent);
        moved = false;
        list.currentIndex = 0;
        input.forceActiveFocus(Qt.PopupFocusReason);
        input.selectAll();
    }
    onAboutToHide: focusReturn.giveBack()

    // What is typed into keeps the focus; the first result is told with how many there are.
    readonly property string resultSaid: {
        const entry = list.currentItem as PaletteEntry;
        const place = entry ? (list.currentIndex === 0 ? resultText : list.currentIndex + 1 + " of " + list.count) : "";
        return entry ? entry.Accessible.name + ", " + place : resultText;
    }
    onResultSaidChanged: {
        if (opened)
            Announcer.say(resultSaid, "palette");
    }

    function run(index: int) {
        if (index < 0 || index >= list.count)
            return;
        close();
        chosen(index);
    }

    function step(to: int, wrap: bool) {
        if (list.count === 0)
            return;
        moved = true;
        list.currentIndex = wrap ? (to + list.count) % list.count : Math.max(0, Math.min(list.count - 1, to));
        list.positionViewAtIndex(list.currentIndex, ListView.Contain);
    }

    /// The keys between a result and what can be done with it belong to the text while it has a use for them.
    function handleStep(event): bool {
        const edits = event.modifiers !== Qt.NoModifier || input.selectedText !== "";
        if (event.key === Qt.Key_Right && !edits && input.cursorPosition === input.length && list.currentItem?.hasMore) {
            moreRequested(list.currentIndex);
            return true;
        }
        const leaves = event.key === Qt.Key_Escape || !edits && input.cursorPosition === 0
            && (event.key === Qt.Key_Left || event.key === Qt.Key_Backspace);
        if (subject === "" || !leaves)
            return false;
        backRequested();
        return true;
    }

    function handleKey(event): bool {
        if (handleStep(event))
            return true;
        switch (event.key) {
        case Qt.Key_Down: step(list.currentIndex + 1, true); return true;
        case Qt.Key_Up: step(list.currentIndex - 1, true); return true;
        case Qt.Key_PageDown: step(list.currentIndex + 8, false); return true;
        case Qt.Key_PageUp: step(list.currentIndex - 8, false); return true;
        case Qt.Key_Return:
        case Qt.Key_Enter: run(list.currentIndex); return true;
        case Qt.Key_Escape: close(); return true;
        }
        // Home and End belong to the text, with Ctrl to the results.
        if (event.modifiers & Qt.ControlModifier) {
            if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
                step(event.key === Qt.Key_Home ? 0 : list.count - 1, false);
                return true;
            }
        }
        return false;
    }

    T.Overlay.modal: Rectangle { color: Theme.scrim }

    background: OrvFloat { radius: 12 }

    contentItem: FocusScope {
        implicitHeight: 53 + (list.count > 0 ? list.height : nothing.height) + foot.height
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: "Command palette"

        OrvIcon {
            x: 21
            y: 18
            size: 16
            name: "edit-find"
            color: Theme.text2
        }

        T.TextField {
            id: input
            x: 49
            width: parent.width - x - 72
            height: 52
            focus: true
            verticalAlignment: TextInput.AlignVCenter
            font: Theme.paletteInput
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.inkOnAccent
            placeholderText: root.subject === "" ? root.placeholder : "What to do with " + root.subject
            Accessible.role: Accessible.EditableText
            Accessible.name: placeholderText
            Accessible.description: list.count > 0 ? root.resultText + ", " + list.currentItem?.title : root.resultText
            onTextEdited: {
                root.moved = false;
                root.queryEdited(text);
                list.currentIndex = list.count > 0 ? 0 : -1;
            }
            Keys.onPressed: event => event.accepted = root.handleKey(event)

            Text {
                visible: input.text === ""
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: input.placeholderText
                font: input.font
                color: Theme.text3
                Accessible.ignored: true
            }
        }

        OrvKeyCap {
            anchors { right: parent.right; rightMargin: 20 }
            y: 17
            text: "Esc"
        }

        Rectangle {
            y: 52
            width: parent.width
            height: 1
            color: Theme.border
        }

        ListView {
            id: list
            y: 53
            width: parent.width
            height: Math.min(contentHeight + 16, 8 * 38 + 76, root.parent ? root.parent.height - 53 - 34 - 40 : 380)
            topMargin: 4
            bottomMargin: 8
            visible: count > 0
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false
            section.property: "group"
            section.delegate: Text {
                required property string section

                x: 21
                height: 30
                verticalAlignment: Text.AlignVCenter
                topPadding: 4
                textFormat: Text.PlainText
                text: section
                font: Theme.microBold
                color: Theme.text3
            }
            // What is found meanwhile moves nothing that the person has chosen.
            onCountChanged: {
                if (!root.moved || currentIndex < 0)
                    currentIndex = count > 0 ? 0 : -1;
            }

            Accessible.role: Accessible.List
            Accessible.name: "Results"

            T.ScrollBar.vertical: OrvScrollBar {}

            delegate: PaletteEntry {
                width: list.width
                current: ListView.isCurrentItem
                onPointed: {
                    root.moved = true;
                    list.currentIndex = index;
                }
                onPressed: root.run(index)
            }
        }

        Column {
            id: nothing
            visible: list.count === 0
            y: 53
            width: parent.width
            padding: 24
            spacing: 4

            Text {
                visible: root.query !== ""
                width: parent.width - 48
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: "Nothing matches “" + root.query + "”"
                font: Theme.bodyStrong
                color: Theme.text
            }

            Text {
                width: parent.width - 48
                horizontalAlignment: Text.AlignHCenter
                textFormat: Text.PlainText
                text: root.hint
                font: Theme.body
                color: Theme.text2
            }
        }

        PaletteFoot {
            id: foot
            anchors.bottom: parent.bottom
            width: parent.width
            hasMore: list.currentItem?.hasMore ?? false
            canGoBack: root.subject !== ""
            text: root.resultText
        }
    }
}
