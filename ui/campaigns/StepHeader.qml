import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// Which email is being written, and how long it waits for a reply to the one before.
Item {
    id: root

    required property SequenceEditor editor
    property bool canWrite: true
    readonly property bool first: editor.place === 0

    implicitHeight: 52

    Text {
        x: 16
        width: waits.x - x - 12
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.editor.title
        font: Theme.paneTitle
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Row {
        id: waits
        anchors { right: more.left; rightMargin: 8 }
        height: parent.height
        spacing: 8

        Text {
            visible: text !== "" && root.width > 560
            height: parent.height
            rightPadding: 8
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.editor.days.movedText
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.first ? "Sends first" : "Wait"
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !root.first
        }

        OrvNumberField {
            visible: !root.first
            anchors.verticalCenter: parent.verticalCenter
            width: 104
            enabled: root.canWrite
            accessibleName: "Wait, in days if no reply"
            lessText: "One day less"
            moreText: "One day more"
            from: 1
            to: 60
            value: root.editor.waitDays
            onEdited: value => root.editor.setWaitDays(value)
        }

        Text {
            visible: !root.first
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "days if no reply"
            font: Theme.body
            color: Theme.text2
            Accessible.ignored: true
        }
    }

    OrvButton {
        id: more
        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        visible: root.canWrite
        iconOnly: true
        iconName: "overflow-menu"
        text: "More about this email"
        onClicked: menu.openAt(more, true)
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            title: "More about this email"

            OrvMenuItem {
                text: "Insert email before"
                iconName: "arrow-up"
                onTriggered: root.editor.insertStep(root.editor.place)
            }

            OrvMenuItem {
                text: "Insert email after"
                iconName: "arrow-down"
                onTriggered: root.editor.insertStep(root.editor.place + 1)
            }

            OrvMenuSeparator {}

            OrvMenuItem {
                text: "Remove email"
                iconName: "edit-delete"
                danger: true
                onTriggered: root.editor.removeStep(root.editor.stepKey)
            }
        }
    }
}
