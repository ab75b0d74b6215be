pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Campaigns

/// The subject or the body of an email: what leads get filled in or varied is set off, and "{{" offers the variables.
FocusScope {
    id: root

    property string name: ""
    property string placeholder: ""
    property bool singleLine: false
    property bool readOnly: false
    property list<emailVariable> variables
    property font font: Theme.reading
    property real side: 0
    /// Where Return in a field of one line leads, and Tab.
    signal finished()
    signal edited(string text)

    readonly property var typed: input.activeFocus && content.edits >= 0 && input.selectedText === ""
                                 ? content.typedVariable(input.cursorPosition) : null
    /// The person does not want the variables now; another one being typed asks again.
    property bool dismissed: false
    onTypedChanged: if (typed === undefined || typed === null) dismissed = false

    /// Another text; `before`, if not empty, is what one undo makes of it.
    function show(text: string, before: string) {
        content.show(text, before);
        flick.contentY = 0;
        flick.contentX = 0;
    }

    /// The same text, changed by somebody else.
    function replace(text: string) {
        content.replaceAll(text);
    }

    function finishComposing() {
        if (input.inputMethodComposing)
            content.finishComposing(input);
    }

    function format(command: string) {
        if (!readOnly)
            select(content.format(command, input.selectionStart, input.selectionEnd));
    }

    function insertVariable(variable: string) {
        if (!readOnly)
            select(content.insertVariable(variable, input.selectionStart, input.selectionEnd));
    }

    function select(range: point) {
        // Not select(): it takes its bounds from a text that it has not read since the change.
        input.cursorPosition = range.x;
        if (range.y !== range.x)
            input.moveCursorSelection(range.y);
        input.forceActiveFocus();
    }

    implicitHeight: singleLine ? Theme.controlHeight : 120
    clip: true

    EmailText {
        id: content

        property int edits: 0

        document: input.textDocument
        singleLine: root.singleLine
        variableInk: Theme.accentText
        variableGround: Theme.accentSubtle
        spinInk: Theme.warning
        spinGround: Theme.warningSubtle
        onEdited: text => {
            ++edits;
            root.edited(text);
        }
    }

    Flickable {
        id: flick

        anchors.fill: parent
        contentWidth: root.singleLine ? Math.max(width, input.implicitWidth) : width
        contentHeight: root.singleLine ? height : Math.max(height, input.implicitHeight)
        boundsBehavior: Flickable.StopAtBounds
        interactive: !root.singleLine && contentHeight > height

        T.ScrollBar.vertical: OrvScrollBar {
            visible: !root.singleLine && flick.contentHeight > flick.height
        }

        function reveal(cursor: rect) {
            const room = 12;
            if (root.singleLine)
                contentX = Math.max(0, Math.min(cursor.x + room - width, contentWidth - width, cursor.x - room < contentX ? cursor.x - room : contentX));
            if (root.singleLine && cursor.x + room > contentX + width)
                contentX = cursor.x + room - width;
            if (root.singleLine)
                return;
            if (cursor.y < contentY + room)
                contentY = Math.max(0, cursor.y - room);
            else if (cursor.y + cursor.height + room > contentY + height)
                contentY = cursor.y + cursor.height + room - height;
        }

        EmailChips {
            x: flick.contentX
            y: flick.contentY
            width: flick.width
            height: flick.height
            text: content
            // A field of one line has its text in the middle.
            origin: Qt.point(root.side - flick.contentX, (root.singleLine ? input.cursorRectangle.y : input.topPadding) - flick.contentY)
            radius: Theme.radiusTag
        }

        TextLines {
            document: input.textDocument
            height: root.singleLine ? 0 : Theme.readingLine
        }

        TextEdit {
            id: input

            width: flick.contentWidth
            height: flick.contentHeight
            leftPadding: root.side
            // Longer lines are hard to read.
            rightPadding: root.singleLine ? root.side : Math.max(root.side, width - root.side - Theme.readingWidth)
            topPadding: root.singleLine ? 0 : 14
            bottomPadding: root.singleLine ? 0 : 14
            focus: true
            activeFocusOnTab: true
            textFormat: TextEdit.PlainText
            wrapMode: root.singleLine ? TextEdit.NoWrap : TextEdit.WrapAtWordBoundaryOrAnywhere
            verticalAlignment: root.singleLine ? TextEdit.AlignVCenter : TextEdit.AlignTop
            font: root.font
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.inkOnAccent
            selectByMouse: true
            persistentSelection: true
            readOnly: root.readOnly

            Accessible.role: Accessible.EditableText
            Accessible.name: root.name
            Accessible.multiLine: !root.singleLine
            Accessible.readOnly: root.readOnly

            function commandOf(event: var): string {
                if (root.readOnly || event.modifiers !== Qt.ControlModifier)
                    return "";
                return event.key === Qt.Key_B ? "bold" : event.key === Qt.Key_I ? "italic" : "";
            }

            onCursorRectangleChanged: if (activeFocus) flick.reveal(cursorRectangle)
            // A selection kept for the format bar must not stay lit in a field that somebody left for another.
            onActiveFocusChanged: if (!activeFocus && root.singleLine) deselect()

            Keys.priority: Keys.BeforeItem
            // The window has shortcuts of its own on these keys.
            Keys.onShortcutOverride: event => event.accepted = (menu.visible && event.key === Qt.Key_Escape)
                                                               || commandOf(event) !== ""
            Keys.onPressed: event => {
                if (menu.visible && event.key === Qt.Key_Escape) {
                    root.dismissed = true;
                    event.accepted = true;
                } else if (menu.visible) {
                    menu.takeKey(event);
                }
                if (event.accepted)
                    return;
                const command = commandOf(event);
                if (command !== "") {
                    event.accepted = true;
                    root.format(command);
                    return;
                }
                const plain = !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier));
                if (root.singleLine && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)) {
                    event.accepted = true;
                    root.finished();
                } else if (root.singleLine && event.key === Qt.Key_Tab && plain) {
                    event.accepted = true;
                    root.finished();
                } else if (event.key === Qt.Key_Tab && plain) {
                    event.accepted = true;
                    nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
                } else if (event.key === Qt.Key_Backtab) {
                    event.accepted = true;
                    nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
                }
            }

            Text {
                x: root.side
                y: input.topPadding
                width: parent.width - 2 * x
                height: root.singleLine ? parent.height : implicitHeight
                visible: content.isEmpty && input.preeditText === ""
                verticalAlignment: root.singleLine ? Text.AlignVCenter : Text.AlignTop
                textFormat: Text.PlainText
                text: root.placeholder
                font: root.font
                lineHeightMode: Text.FixedHeight
                lineHeight: root.singleLine ? 20 : Theme.readingLine
                color: Theme.text3
                elide: Text.ElideRight
                Accessible.ignored: true
            }

            VariablePopup {
                id: menu

                readonly property rect at: input.cursorRectangle

                variables: root.variables
                typed: root.typed ?? ""
                visible: !root.readOnly && !root.dismissed && root.typed !== undefined && root.typed !== null
                         && matches.length > 0
                x: at.x
                y: at.y + at.height + 4
                onChosen: name => root.insertVariable(name)
            }
        }
    }
}
