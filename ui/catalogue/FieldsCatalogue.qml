import QtQuick
import Orvella.Design

/// What takes text or a choice, in each state.
Rectangle {
    id: root

    readonly property var roles: [
        {key: "admin", label: "Admin", detail: "Everything but closing the workspace"},
        {key: "member", label: "Member", detail: "Writes and runs campaigns"},
        {key: "viewer", label: "Viewer", detail: "Looks, changes nothing"}]

    color: Theme.surface

    Row {
        x: 24
        y: 24
        spacing: 40

        Column {
            width: 348
            spacing: 16

            OrvField { width: parent.width; label: "Campaign name"; placeholder: "Fleet maintenance, Benelux" }
            OrvField { width: parent.width; label: "Daily limit"; text: "30"; help: "Most inboxes stay healthy at 30 a day." }
            OrvNumberField { label: "Daily cap per inbox"; from: 1; to: 500; value: 30; onEdited: number => value = number }
            OrvNumberField { width: 200; label: "Gap between sends"; suffix: "minutes"; from: 1; to: 1440; keepsText: true; text: "1441"; rangeError: "1 to 1440 minutes" }
            OrvNumberField { label: "Daily limit"; placeholder: "None"; keepsText: true; clearable: true; enabled: false }
            OrvField { width: parent.width; label: "Work email"; text: "maren@northgate"; error: "That isn’t a whole address." }
            OrvField { width: parent.width; label: "Password"; secret: true; text: "northgate" }
            OrvTextArea { width: parent.width; label: "Signature"; placeholder: "Best,\nEllen"; help: "Plain text; blank lines stay." }
            OrvField { width: parent.width; label: "Off"; text: "Fixed by the owner"; enabled: false }
            OrvField { width: parent.width; search: true; placeholder: "Search campaigns"; text: "fleet" }
            Row {
                spacing: 16

                OrvDateField { width: 166; label: "Start date"; placeholder: "On launch"; help: "Empty: on launch." }
                OrvDateField { width: 166; label: "End date"; text: "2026-02-30" }
            }

            OrvCodeField { width: parent.width; text: "4192" }
            OrvCodeField { width: parent.width; text: "419206"; error: "That code isn’t right. 2 tries left." }
        }

        Column {
            spacing: 16

            OrvSelect { label: "Role"; options: root.roles; current: "member"; onChosen: key => current = key }
            OrvSelect { label: "Role"; options: root.roles }
            OrvSelect { label: "Role"; options: root.roles; current: "admin"; enabled: false }
            OrvCheckbox { text: "Open tracking"; checked: true }
            OrvCheckbox { text: "Click tracking" }
            OrvCheckbox { text: "Some of them"; tristate: true; checkState: Qt.PartiallyChecked }
            OrvCheckbox { text: "Off"; enabled: false }
            OrvSwitch { text: "Warm-up"; checked: true }
            OrvSwitch { text: "Pauses at replies" }
            OrvSwitch { text: "Off"; enabled: false }
            OrvSegments {
                label: "Status"
                options: [{key: "all", label: "All", count: 10}, {key: "running", label: "Running", count: 4}, {key: "draft", label: "Draft", count: -1}]
                current: "all"
                onChosen: key => current = key
            }
            OrvTabs {
                options: [{key: "sequence", label: "Sequence", count: -1}, {key: "leads", label: "Leads", count: 420}]
                current: "sequence"
                onChosen: key => current = key
            }
            OrvTagEditor {
                width: 348
                label: "Tags"
                help: "Labels to find it by."
                tags: [{key: "q4", label: "Q4"}, {key: "fleet", label: "Fleet"}]
            }
            OrvTagEditor { width: 348; label: "Tags"; placeholder: "Add a tag" }
            OrvTagEditor { width: 348; label: "Tags"; tags: [{key: "q4", label: "Q4"}]; error: "20 tags is the most" }
            OrvSuggestField { width: 348; label: "Time zone"; placeholder: "Europe/London" }
            Row {
                spacing: 8

                OrvChip { key: "Industry"; value: "Insurance" }
                OrvChip { key: "Country"; value: "Austria"; exclusion: true }
            }
        }
    }
}
