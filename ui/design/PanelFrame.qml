import QtQuick

/// A panel about one thing: its name, the way out, and content that scrolls.
FocusScope {
    id: root

    property string title: ""
    /// Up and Down, outside of fields, lead to the record before and after.
    property bool steps: false
    default property alias content: body.data

    signal closeRequested()
    signal stepRequested(int by)

    function stepByKey(event, by: int) {
        const typing = Window.activeFocusItem instanceof TextInput || Window.activeFocusItem instanceof TextEdit;
        event.accepted = steps && !typing;
        if (event.accepted)
            stepRequested(by);
    }

    Accessible.role: Accessible.Pane
    Accessible.name: title

    Keys.onEscapePressed: closeRequested()
    Keys.onUpPressed: event => stepByKey(event, -1)
    Keys.onDownPressed: event => stepByKey(event, 1)
    Keys.onPressed: event => scroll.keys.take(event)

    Text {
        x: 20
        width: (root.steps ? before.x : close.x) - x - 8
        height: 52
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.title
        font: Theme.paneTitle
        color: Theme.text
        Accessible.ignored: true
    }

    OrvButton {
        id: before
        visible: root.steps
        anchors { right: after.left; rightMargin: 2 }
        y: 11
        kind: "ghost"
        iconName: "go-up"
        iconOnly: true
        text: "Previous"
        onClicked: root.stepRequested(-1)
    }

    OrvButton {
        id: after
        visible: root.steps
        anchors { right: close.left; rightMargin: 2 }
        y: 11
        kind: "ghost"
        iconName: "go-down"
        iconOnly: true
        text: "Next"
        onClicked: root.stepRequested(1)
    }

    OrvButton {
        id: close
        anchors { right: parent.right; rightMargin: 12 }
        y: 11
        kind: "ghost"
        iconName: "orv-close"
        iconOnly: true
        text: "Close"
        onClicked: root.closeRequested()
    }

    Rectangle {
        y: 51
        width: parent.width
        height: 1
        color: Theme.border
    }

    ScrollPane {
        id: scroll
        y: 52
        width: parent.width
        height: parent.height - y
        contentHeight: body.childrenRect.height + 32

        Item {
            id: body
            x: 20
            y: 16
            width: parent.width - 40
            height: childrenRect.height
        }
    }
}
