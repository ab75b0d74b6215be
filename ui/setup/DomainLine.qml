import QtQuick
import Orvella.Design

/// A domain of a project, or one that was taken off it.
Rectangle {
    id: root

    required property string domain
    required property string detail
    property bool archived: false
    property bool editable: false
    property bool busy: false
    property bool current: false

    signal removed(string domain)
    signal restored(string domain)

    function act() {
        if (editable && !busy)
            archived ? restored(domain) : removed(domain);
    }

    implicitHeight: 44
    color: hover.hovered ? Theme.hover : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: detail === "" ? domain : domain + ", " + detail
    Accessible.focusable: true
    Accessible.focused: current
    // Taking one off has its own button, so that nobody does it by opening the line.
    Accessible.onPressAction: if (root.archived) root.act()

    HoverHandler {
        id: hover
    }

    Text {
        x: 20
        y: root.detail === "" ? 12 : 4
        width: button.x - x - 8
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: root.domain
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        x: 20
        y: 23
        width: button.x - x - 8
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.detail
        font: Theme.microText
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvButton {
        id: button
        x: root.width - width - 12
        anchors.verticalCenter: parent.verticalCenter
        visible: root.editable && (root.archived || hover.hovered || root.current)
        kind: root.archived ? "secondary" : "ghost"
        size: "small"
        iconOnly: !root.archived
        iconName: root.archived ? "edit-undo" : "orv-close"
        text: root.archived ? "Restore" : "Remove " + root.domain
        busy: root.busy
        activeFocusOnTab: false
        focusPolicy: Qt.NoFocus
        onClicked: root.act()
    }

    OrvDivider {
        y: root.height - 1
        width: root.width
    }

    FocusRing {
        visible: root.current
        inset: true
    }
}
