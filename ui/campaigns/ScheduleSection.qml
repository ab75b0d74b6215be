pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The weekly hours in which a campaign sends, saved apart from the settings.
SettingsSection {
    id: root

    required property ScheduleForm form

    key: "schedules"
    title: "Schedules"

    Repeater {
        // By number, so that what is typed in keeps the caret.
        model: root.form.count

        ScheduleWindowFields {
            required property int index

            width: root.width
            form: root.form
            number: index
        }
    }

    RestoredNotice {
        width: parent.width
        recovery: root.form.recovery
    }

    OrvNotice {
        width: parent.width
        visible: text !== ""
        text: root.form.note
    }

    Row {
        width: parent.width
        spacing: 8

        OrvButton {
            kind: "ghost"
            text: "Add schedule"
            iconName: "list-add"
            onClicked: root.form.add()
        }

        OrvButton {
            visible: root.form.dirty
            kind: "ghost"
            text: "Discard"
            hint: "Puts back the schedules as they were saved"
            enabled: !root.form.saving
            onClicked: root.form.discard()
        }
    }
}
