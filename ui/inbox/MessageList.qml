import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Inbox

/// The messages, piece by piece, so that long ones and many cost what is seen. Opens at the last one.
FocusScope {
    id: root

    required property Conversation conversation

    signal linkChosen(string url)

    ListView {
        id: view

        /// The end stays in sight until somebody scrolls away from it.
        property bool atLast: true

        function toEnd() {
            atLast = true;
            positionViewAtEnd();
        }

        function scrollBy(by: real) {
            atLast = false;
            contentY = Math.max(originY, Math.min(contentY + by, originY + Math.max(0, contentHeight - height)));
            atLast = atYEnd;
        }

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        model: ShownMessages {
            conversation: root.conversation
            onConversationChanged: view.toEnd()
        }
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        currentIndex: -1
        cacheBuffer: 400
        clip: true
        bottomMargin: 16

        Accessible.role: Accessible.List
        Accessible.name: "Messages"

        T.ScrollBar.vertical: OrvScrollBar {}

        RowFocus {
            target: view
            onMoved: view.atLast = view.atYEnd
        }

        onMovementEnded: atLast = atYEnd
        onHeightChanged: if (atLast) later.start()
        onContentHeightChanged: if (atLast) later.start()

        // Not from within the view's own laying out.
        Timer {
            id: later
            interval: 0
            onTriggered: view.positionViewAtEnd()
        }

        Keys.onPressed: event => {
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_Down: scrollBy(60); break;
            case Qt.Key_Up: scrollBy(-60); break;
            case Qt.Key_PageDown:
            case Qt.Key_Space: scrollBy(height - 48); break;
            case Qt.Key_PageUp: scrollBy(48 - height); break;
            case Qt.Key_Home: scrollBy(-contentHeight); break;
            case Qt.Key_End: toEnd(); break;
            default: event.accepted = false;
            }
        }

        delegate: MessagePart {
            width: view.width
            onFoldRequested: id => {
                view.atLast = false;
                root.conversation.fold(id);
            }
            onLinkChosen: url => root.linkChosen(url)
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        visible: view.activeFocus && InputMode.keyboard
        color: "transparent"
        radius: Theme.radiusControl
        border { width: 2; color: Theme.focus }
    }
}
