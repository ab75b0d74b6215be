import QtQuick
import Orvella.Design
import Orvella.Leads

/// What can be done with the leads that are ticked, or with the first so many.
OrvSelectionBar {
    id: root

    required property LeadResults results
    property bool narrow: false
    /// Buttons of the place that shows it.
    property alias more: moreRow.data

    count: results.selection.count
    countText: results.selectedText

    OrvButton {
        id: howMany
        kind: "ghost"
        text: root.narrow ? "Select" : "Select how many leads"
        menuArrow: true
        Accessible.name: "Select how many leads"
        onClicked: menu.openAt(howMany, false)
    }

    OrvButton {
        kind: "ghost"
        text: "Add to list"
        iconName: "list-add"
        onClicked: root.results.addToList()
    }

    OrvButton {
        kind: "ghost"
        text: "Add to campaign"
        iconName: "mail-send"
        onClicked: root.results.addToCampaign()
    }

    OrvButton {
        kind: "ghost"
        text: "Unlock"
        iconName: "object-unlocked"
        hint: root.results.actions.allowance.note
        onClicked: root.results.unlock()
    }

    Row {
        id: moreRow
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            title: "Select how many leads"

            OrvMenuItem { text: "Select loaded rows"; onTriggered: root.results.tickLoaded() }
            OrvMenuItem { text: "Custom number…"; onTriggered: root.results.askFirst() }
        }
    }
}
