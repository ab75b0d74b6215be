pragma ComponentBehavior: Bound
import QtQuick

/// Floats over a table while rows are ticked: how many, what can be done with them, and "Clear". Its children are the
/// actions, ghost buttons; those that do not fit are the page's to put in a menu under "More".
FocusScope {
    id: root

    property int count: 0
    /// Some lists can select more than is loaded; then this is what the count says.
    property string countText: count.toLocaleString(Qt.locale(), "f", 0) + " selected"
    /// The table's room for it, while it shows.
    readonly property real footRoom: visible ? 76 : 0

    default property alias actions: actionRow.data

    signal cleared()

    visible: count > 0
    width: row.width + 24
    height: 44
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - 16 : 0
    z: 3

    Accessible.role: Accessible.ToolBar
    Accessible.name: countText

    onCountTextChanged: Announcer.say(count > 0 ? countText : "Nothing selected", "selection")

    Keys.onEscapePressed: cleared()
    Keys.onLeftPressed: step(false)
    Keys.onRightPressed: step(true)

    function step(forward: bool) {
        const next = Window.window.activeFocusItem?.nextItemInFocusChain(forward);
        for (let item = next; item; item = item.parent) {
            if (item === root) {
                next.forceActiveFocus(Qt.TabFocusReason);
                return;
            }
        }
    }

    OrvFloat {
        anchors.fill: parent
    }

    Row {
        id: row
        x: 12
        height: root.height
        spacing: 4

        Text {
            height: parent.height
            rightPadding: 8
            leftPadding: 2
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.countText
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Divider {}

        Row {
            id: actionRow
            anchors.verticalCenter: parent.verticalCenter
        }

        Divider {}

        OrvButton {
            anchors.verticalCenter: parent.verticalCenter
            kind: "ghost"
            text: "Clear"
            onClicked: root.cleared()
        }
    }

    component Divider: Rectangle {
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        width: 1
        height: 20
        color: Theme.border
    }
}
