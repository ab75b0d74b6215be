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
    enabled: options.count > 0
    hint: options.count === 0 ? "No campaign carries a tag yet." : ""
    onClicked: menu.openAt(root, true)

    ChoiceList {
        id: options
        options: root.store.tagOptions
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Tags"

            Instantiator {
                model: options

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    tickable: true
                    ticked: modelData.ticked
                    onTriggered: root.store.toggleTag(modelData.key)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }
        }
    }
}
