import QtQuick
import QtQml
import Orvella.Design
import Orvella.Campaigns

/// Narrows the list to campaigns that carry one of the chosen tags.
OrvButton {
    id: root

    required property CampaignsStore store

    text: "Tags"
    iconName: "tag"
    count: store.tags.length > 0 ? store.tags.length : -1
    menuArrow: true
    enabled: store.allTags.length > 0
    hint: store.allTags.length === 0 ? "No campaign carries a tag yet." : ""
    onClicked: menu.openAt(root, true)

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Tags"

            Instantiator {
                model: root.store.allTags

                OrvMenuItem {
                    required property string modelData

                    text: modelData
                    tickable: true
                    ticked: root.store.tags.includes(modelData)
                    onTriggered: root.store.toggleTag(modelData)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }
        }
    }
}
