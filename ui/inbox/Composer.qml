import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// What the person writes to a lead: a reply of their own, or what they make of a draft. It has no frame of its own.
/// Ctrl+Return sends, Esc leaves; the text stays in the Writing either way.
FocusScope {
    id: root

    required property Writing writing
    /// Said to screen readers, and where nothing is written yet.
    property string label: ""
    property string placeholder: "Write your reply…"
    property bool editable: true
    /// With the fields for copies, behind "Cc / Bcc".
    property bool withCopies: false
    property bool copiesShown: withCopies && (writing.cc !== "" || writing.bcc !== "")
    property real leastHeight: 72
    property real mostHeight: 320
    /// What the text itself would take.
    readonly property real wantedHeight: fields.height + Math.max(leastHeight, input.contentHeight + 12)

    signal sendRequested()
    signal leaveRequested()

    implicitHeight: Math.min(mostHeight, wantedHeight)

    function take() {
        input.forceActiveFocus(Qt.OtherFocusReason);
    }

    function showCopies() {
        copiesShown = true;
        cc.forceActiveFocus(Qt.OtherFocusReason);
    }

    /// The text that the field was given, and what it made of that: line ends and blanks of its own. What nobody has
    /// touched stays as it was given.
    property string given: ""
    property string made: ""
    property bool showing: false

    function show() {
        const stands = input.text === writing.body || (writing.body === given && input.text === made);
        if (!stands) {
            showing = true;
            given = writing.body;
            input.text = given;
            made = input.text;
            input.cursorPosition = input.length;
            showing = false;
        }
        cc.text = writing.cc;
        bcc.text = writing.bcc;
    }

    /// The one that was told of this view; another one may take its place.
    property Writing watched: null

    function watch(next: Writing) {
        if (next === watched)
            return;
        watched?.disappear();
        watched = next;
        watched?.appear();
        given = made = "";
        if (watched)
            show();
    }

    onWritingChanged: watch(writing)
    Component.onCompleted: watch(writing)
    Component.onDestruction: watch(null)

    Keys.onEscapePressed: leaveRequested()
    Keys.onPressed: event => {
        const wants = (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && event.modifiers & Qt.ControlModifier;
        event.accepted = wants;
        if (wants)
            sendRequested();
    }

    Column {
        id: fields
        width: root.width
        spacing: 6
        bottomPadding: children.length > 0 && visible ? 6 : 0
        visible: root.copiesShown || restored.visible || rival.visible
        height: visible ? implicitHeight : 0

        RestoredNotice {
            id: restored
            width: parent.width
            recovery: root.writing.recovery
        }

        OrvNotice {
            id: rival
            visible: text !== ""
            width: parent.width
            text: root.writing.rival === "" ? "" : "The draft was written anew while you edited it. Yours stays until you discard it."
        }

        Row {
            visible: root.copiesShown
            width: parent.width
            spacing: 12

            OrvField {
                id: cc
                width: (parent.width - parent.spacing) / 2
                placeholder: "Cc"
                accessibleName: "Cc"
                readOnly: !root.editable
                error: activeFocus ? "" : root.writing.ccProblem
                onEdited: text => root.writing.cc = text
            }

            OrvField {
                id: bcc
                width: (parent.width - parent.spacing) / 2
                placeholder: "Bcc"
                accessibleName: "Bcc"
                readOnly: !root.editable
                error: activeFocus ? "" : root.writing.bccProblem
                onEdited: text => root.writing.bcc = text
            }
        }
    }

    Flickable {
        id: scroll
        y: fields.height
        width: root.width
        height: root.height - y
        contentWidth: width
        contentHeight: input.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: OrvScrollBar {}

        TextLines {
            document: input.textDocument
            height: Theme.readingLine
        }

        TextEdit {
            id: input
            width: scroll.width
            height: Math.max(scroll.height, contentHeight + topPadding + bottomPadding)
            topPadding: 2
            bottomPadding: 10
            rightPadding: Math.max(8, width - Theme.readingWidth)
            focus: true
            activeFocusOnTab: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
            font: Theme.reading
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.inkOnAccent
            selectByMouse: true
            readOnly: !root.editable

            Accessible.role: Accessible.EditableText
            Accessible.name: root.label !== "" ? root.label : root.placeholder
            Accessible.multiLine: true

            // A tab leads on, as in every other field; a line that ends is part of the text.
            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: event => root.leaveText(event, true)
            Keys.onBacktabPressed: event => root.leaveText(event, false)
            Keys.onEscapePressed: root.leaveRequested()
            Keys.onPressed: event => {
                event.accepted = (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && (event.modifiers & Qt.ControlModifier) !== 0;
                if (event.accepted)
                    root.sendRequested();
            }

            onTextChanged: {
                if (activeFocus && !root.showing && text !== root.writing.body)
                    root.writing.body = text === root.made ? root.given : text;
            }
            onCursorRectangleChanged: {
                const room = 8;
                if (cursorRectangle.y < scroll.contentY + room)
                    scroll.contentY = Math.max(0, cursorRectangle.y - room);
                else if (cursorRectangle.y + cursorRectangle.height + room > scroll.contentY + scroll.height)
                    scroll.contentY = cursorRectangle.y + cursorRectangle.height + room - scroll.height;
            }

            Text {
                anchors.fill: parent
                topPadding: input.topPadding
                visible: input.text === "" && input.preeditText === ""
                textFormat: Text.PlainText
                text: root.placeholder
                font: input.font
                lineHeightMode: Text.FixedHeight
                lineHeight: Theme.readingLine
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }

    function leaveText(event, forward: bool) {
        const next = input.nextItemInFocusChain(forward);
        event.accepted = next !== null;
        if (next)
            next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    Connections {
        target: root.writing

        function onGiven() {
            root.show();
        }
    }
}
