import QtQuick
import QtQml
import Orvella.Design
import Orvella.Leads

/// The saved searches: to open one, to delete one, and the way to those deleted.
OrvButton {
    id: root

    required property LeadFinder finder
    required property bool canWrite
    readonly property SavedSearches saved: finder.saved

    text: "Saved"
    menuArrow: true
    onClicked: menu.openAt(root, true)

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Saved searches"

            OrvMenuItem {
                visible: root.saved.choices.length === 0
                enabled: false
                text: "No saved searches yet"
            }

            Instantiator {
                model: ChoiceList { options: root.saved.choices }

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    onTriggered: root.finder.open(modelData.key)
                }

                onObjectAdded: (index, object) => list.insertItem(index + 1, object as Item)
                onObjectRemoved: (index, object) => list.removeItem(object as Item)
            }

            OrvMenuSeparator {}

            OrvMenuItem {
                text: "Manage searches…"
                onTriggered: root.saved.showArchive()
            }
        }
    }
}
