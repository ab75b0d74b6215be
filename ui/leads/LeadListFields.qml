import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Picks the list that leads go into, or names a new one.
Column {
    id: root

    required property LeadListPicker picker
    property string nameError: ""
    readonly property alias choice: choiceField
    readonly property Resource lists: picker.lists
    readonly property bool failed: lists.state === Resource.Error || (lists.state === Resource.Offline && !lists.hasContent)

    spacing: 12

    Row {
        width: parent.width
        spacing: 12

        OrvSelect {
            id: choiceField
            width: root.picker.isNew ? Math.round((parent.width - 12) * 0.36) : parent.width
            label: "List"
            placeholder: root.lists.state === Resource.Loading ? "Loading your lists…" : "Pick a list"
            hint: "Pick a list"
            options: root.picker.options
            current: root.picker.current
            onChosen: key => root.picker.current = key
        }

        OrvField {
            visible: root.picker.isNew
            width: parent.width - choiceField.width - 12
            label: "New list name"
            text: root.picker.newName
            error: root.nameError
            onEdited: text => root.picker.newName = text
        }
    }

    OrvNotice {
        width: parent.width
        visible: root.failed
        tone: "negative"
        text: "Couldn’t load lists. " + root.lists.message
    }

    OrvButton {
        visible: root.failed
        text: "Try again"
        onClicked: root.picker.retry()
    }
}
