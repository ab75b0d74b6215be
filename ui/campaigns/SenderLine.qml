import QtQuick
import Orvella.Design

/// One mailbox of the senders' list.
Item {
    id: root

    required property int index
    // By the model's names; the mailbox's own id is called so there.
    required property var model
    property bool focused: false
    readonly property bool ticked: model.ticked
    readonly property string remarks: [model.viaTag ? "via tag" : "", model.reason, model.today].filter(text => text !== "").join(", ")

    signal pressed(string id)

    function press() {
        if (enabled) pressed(model.id);
    }

    height: 44

    Accessible.role: Accessible.CheckBox
    Accessible.name: model.name + ", " + model.address
    Accessible.description: remarks
    Accessible.checkable: true
    Accessible.checked: ticked
    Accessible.focusable: true
    Accessible.focused: focused
    Accessible.onPressAction: root.press()
    Accessible.onToggleAction: root.press()

    Rectangle {
        anchors.fill: parent
        color: pointer.hovered ? Theme.hover : "transparent"
        FocusRing { visible: root.focused; inset: true }
    }

    TableTick {
        x: 12
        anchors.verticalCenter: parent.verticalCenter
        checked: root.ticked
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: 38
        width: facts.x - x - 12

        Text {
            width: parent.width
            textFormat: Text.PlainText
            text: root.model.name
            font: Theme.bodyStrong
            color: Theme.text
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        OrvAddress {
            width: parent.width
            text: root.model.address
            font: Theme.small
            color: Theme.text2
        }
    }

    Row {
        id: facts
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        spacing: 8

        OrvTag {
            visible: root.model.viaTag
            anchors.verticalCenter: parent.verticalCenter
            text: "via tag"
        }

        Text {
            visible: text !== ""
            anchors.verticalCenter: parent.verticalCenter
            textFormat: Text.PlainText
            text: root.model.reason
            font: Theme.small
            color: Theme.warning
            Accessible.ignored: true
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            textFormat: Text.PlainText
            text: root.model.today
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }
    }

    HoverHandler { id: pointer }
    TapHandler { onTapped: root.press() }
}
