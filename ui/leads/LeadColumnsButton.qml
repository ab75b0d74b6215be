import QtQuick
import QtQml
import Orvella.Design
import Orvella.Leads

/// Which columns the table of leads shows.
OrvButton {
    id: root

    required property LeadColumns choice

    size: "small"
    iconName: "view-file-columns"
    text: "Columns"
    onClicked: menu.openAt(root, true)

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            id: list
            title: "Show columns"

            Instantiator {
                model: ChoiceList { options: root.choice.choices }

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    tickable: true
                    ticked: modelData.ticked
                    onTriggered: root.choice.toggle(modelData.key)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object as Item)
                onObjectRemoved: (index, object) => list.removeItem(object as Item)
            }

            OrvMenuSeparator {}

            OrvMenuItem {
                text: "Reset to default"
                iconName: "edit-undo"
                enabled: root.choice.chosen
                onTriggered: root.choice.reset()
            }
        }
    }
}
