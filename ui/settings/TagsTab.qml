import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// The workspace's tags, and how much carries each.
SettingsPane {
    id: root

    summary: "Tags are given on campaigns and accounts; this is where they are counted."

    ResourceView {
        anchors.fill: parent
        resource: root.store.lists.tags
        emptyIcon: "tag"
        emptyTitle: "No tags yet"
        emptyText: "Tag a campaign or an account, and the tag appears here."
        errorTitle: "Couldn’t load the tags"
        onRetryRequested: root.store.refresh()

        OrvForm {
            anchors.fill: parent
            focus: true
            isStop: true

            FactList {
                width: parent.width
                title: ""
                facts: root.store.lists.tagFacts
            }
        }
    }
}
