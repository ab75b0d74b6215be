import QtQuick
import Orvella.Design

/// A rule, where it comes from, and what can be done with it.
Item {
    id: root

    required property string id
    required property string text
    required property string origin
    required property bool active
    required property bool busy
    property bool current: false

    signal menuRequested(Item button)
    /// Its control has the focus.
    signal reached()

    function press() {
        if (!busy)
            menuRequested(more);
    }

    height: words.height + 21
    Accessible.role: Accessible.ListItem
    Accessible.name: text + ", " + from.text

    Rectangle {
        anchors.fill: parent
        visible: root.current
        color: Theme.hover
    }

    OrvDivider {
        x: 20
        width: parent.width - 40
    }

    OrvIcon {
        x: 22
        y: 12
        size: 14
        name: "games-hint"
        color: root.active ? Theme.positive : Theme.text3
    }

    Column {
        id: words
        x: 42
        y: 10
        width: parent.width - x - 56

        Text {
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.text
            font: Theme.body
            color: root.active ? Theme.text : Theme.text2
            Accessible.ignored: true
        }

        Text {
            id: from
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.active ? root.origin : root.origin + ", switched off"
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }
    }

    OrvButton {
        id: more
        x: parent.width - width - 14
        y: 8
        kind: "ghost"
        size: "small"
        iconOnly: true
        iconName: "overflow-menu"
        text: "Actions for this rule"
        busy: root.busy
        onActiveFocusChanged: if (activeFocus) root.reached()
        onClicked: root.press()
    }
}
