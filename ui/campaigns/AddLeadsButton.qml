import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// Opens the ways to add leads.
OrvButton {
    id: root

    required property LeadAdding adding

    kind: "primary"
    text: "Add leads"
    iconName: "list-add"
    menuArrow: true
    busy: adding.form.busy && !adding.form.shown
    onClicked: openMenu()

    function openMenu() {
        // What is still being sent is shown instead: one thing at a time.
        if (adding.form.busy) {
            adding.show(adding.way);
            return;
        }
        menu.openAt(root, true);
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            title: "Add leads"

            OrvMenuItem {
                text: "From a CSV file"
                detail: "Up to 50 MB, the first row names the columns"
                onTriggered: root.adding.show("csv")
            }

            OrvMenuItem {
                text: "From a list"
                detail: "Everybody on one of your lead lists"
                onTriggered: root.adding.show("list")
            }

            OrvMenuItem {
                text: "From your leads"
                detail: "The newest of the leads you already have"
                onTriggered: root.adding.show("leads")
            }

            OrvMenuItem {
                text: "By hand"
                detail: "One person, by email address"
                onTriggered: root.adding.show("manual")
            }
        }
    }
}
