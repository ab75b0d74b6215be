import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Picks one of the workspace's lead lists.
Column {
    id: root

    required property LeadAdding adding
    readonly property Resource lists: adding.lists
    readonly property bool failed: lists.state === Resource.Error || (lists.state === Resource.Offline && !lists.hasContent)

    spacing: 12

    OrvSelect {
        width: parent.width
        visible: !root.failed && root.lists.state !== Resource.Empty
        enabled: root.lists.hasContent
        label: "List"
        placeholder: root.lists.state === Resource.Loading ? "Loading your lists…" : "Pick a list"
        options: root.adding.listOptions
        current: root.adding.listId
        onChosen: key => root.adding.listId = key
    }

    DialogText {
        visible: root.lists.state === Resource.Empty
        text: "There are no lists yet. Search for leads and save the results as a list."
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
        onClicked: root.adding.retryLists()
    }
}
