pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The weekly hours in which a campaign sends, with a save of their own.
SettingsSection {
    id: root

    required property ScheduleForm form

    signal saveRequested()

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
            text: "Save schedule"
            busy: root.form.saving
            enabled: root.form.canSave || root.form.saving
            onClicked: root.saveRequested()
        }

        OrvButton {
            visible: root.form.dirty
            kind: "ghost"
            text: "Discard"
            enabled: !root.form.saving
            onClicked: root.form.discard()
        }

        OrvButton {
            kind: "ghost"
            text: "Add schedule"
            iconName: "list-add"
            onClicked: root.form.add()
        }
    }
}
