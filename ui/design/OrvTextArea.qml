import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// Some lines of plain text with the label above and help or error below; it grows with what is written.
FieldFrame {
    id: root

    property string placeholder: ""
    property real leastHeight: 84
    property real mostHeight: 220
    property alias text: input.text
    readonly property alias input: input

    /// The person changed the text; not sent for changes from outside.
    signal edited(string text)

    caret: input.activeFocus
    frameHeight: Math.min(mostHeight, Math.max(leastHeight, input.contentHeight + 16))

    Flickable {
        id: scroll
        anchors.fill: parent
        anchors.margins: 1
        contentWidth: width
        contentHeight: input.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: OrvScrollBar {}

        TextEdit {
            id: input
            width: scroll.width
            height: Math.max(scroll.height, contentHeight + topPadding + bottomPadding)
            leftPadding: 9
            rightPadding: 9
            topPadding: 7
            bottomPadding: 7
            focus: true
            activeFocusOnTab: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
            font: Theme.body
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.inkOnAccent
            selectByMouse: true
            readOnly: root.readOnly

            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.description: root.note
            Accessible.multiLine: true
            Accessible.readOnly: root.readOnly

            // A tab leads on, as in every other field.
            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: event => root.leave(event, true)
            Keys.onBacktabPressed: event => root.leave(event, false)

            // A text that comes from outside while it is written in is told back, which changes nothing.
            onTextChanged: if (activeFocus) root.edited(text)
            onCursorRectangleChanged: {
                const room = 8;
                if (cursorRectangle.y < scroll.contentY + room)
                    scroll.contentY = Math.max(0, cursorRectangle.y - room);
                else if (cursorRectangle.y + cursorRectangle.height + room > scroll.contentY + scroll.height)
                    scroll.contentY = cursorRectangle.y + cursorRectangle.height + room - scroll.height;
            }

            Text {
                anchors.fill: parent
                leftPadding: input.leftPadding
                rightPadding: input.rightPadding
                topPadding: input.topPadding
                wrapMode: Text.Wrap
                elide: Text.ElideRight
                visible: input.text === "" && input.preeditText === ""
                textFormat: Text.PlainText
                text: root.placeholder
                font: input.font
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }

    function leave(event, forward: bool) {
        const next = input.nextItemInFocusChain(forward);
        event.accepted = next !== null;
        if (next)
            next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }
}
