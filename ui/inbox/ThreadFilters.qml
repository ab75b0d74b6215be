import QtQuick
import QtQml
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// What the list of conversations is narrowed by.
FocusScope {
    id: root

    required property ThreadList threads

    signal finished()

    implicitHeight: Theme.controlHeight

    SearchField {
        width: root.width - status.width - mailbox.width - 12
        focus: true
        placeholder: "Search leads"
        text: root.threads.query
        onEdited: text => root.threads.query = text
        onFinished: root.finished()
    }

    OrvSelect {
        id: status
        x: root.width - width - mailbox.width - 6
        width: 124
        hint: "Filter by status"
        options: root.threads.labels
        current: root.threads.label
        onChosen: key => root.threads.label = key
    }

    OrvButton {
        id: mailbox
        x: root.width - width
        kind: "secondary"
        iconOnly: true
        iconName: "view-filter"
        text: root.threads.mailbox === "" ? "Filter by mailbox" : "Filter by mailbox, " + mailboxes.currentLabel
        onClicked: menu.openAt(mailbox, true)
    }

    // A filter that is in force says so without its words.
    Rectangle {
        visible: root.threads.mailbox !== ""
        x: root.width - 9
        y: 3
        width: 6
        height: 6
        radius: 3
        color: Theme.accentText
    }

    ChoiceList {
        id: mailboxes
        options: root.threads.mailboxes
        current: root.threads.mailbox
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Filter by mailbox"

            Instantiator {
                model: mailboxes

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    shortcutText: modelData.count >= 0 ? modelData.count : ""
                    tickable: true
                    ticked: modelData.key === root.threads.mailbox
                    onTriggered: root.threads.mailbox = modelData.key
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }
        }
    }
}
