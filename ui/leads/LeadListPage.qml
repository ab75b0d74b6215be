import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// One list: who is in it, and what can be done with them.
FocusScope {
    id: root

    required property LeadListStore store
    readonly property LeadResults results: store.results

    Component.onCompleted: store.ensureLoaded()

    LeadListHeader {
        id: header
        width: root.width
        store: root.store
    }

    LeadResultsView {
        id: content
        y: header.height
        width: root.width
        height: root.height - y - foot.height
        visible: !root.store.missing
        focus: true
        results: root.results
        choice: root.store.columns
        canWrite: root.store.canWrite
        store: root.store
        view.emptyIcon: "system-users"
        view.emptyTitle: "This list is empty"
        view.emptyText: "Find leads in Search, tick them, then Add to list."
        view.errorTitle: "Couldn’t load the list"
        view.errorAction: "Back to lists"
        view.onErrorActionRequested: root.store.openLists()
        placeActions: [
            OrvButton {
                kind: "ghost"
                text: "Remove from list"
                iconName: "edit-delete"
                busy: root.store.busy
                onClicked: root.store.removeTicked()
            }
        ]
    }

    OrvEmpty {
        y: header.height
        width: root.width
        height: root.height - y
        visible: root.store.missing
        iconName: "system-users"
        title: "This list isn’t here any more"
        text: "Somebody may have deleted it. Deleted lists wait in Archived for 30 days."
        actionText: "Back to lists"
        onActionRequested: root.store.openLists()
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: root.width
        countText: root.results.shownText
        resource: root.results.list
    }

    LeadDialogs {
        actions: root.store.leadActions
    }

    ImportDrop {
        enabled: root.store.canWrite
        onFileDropped: file => root.store.dropFile(file)
    }
}
