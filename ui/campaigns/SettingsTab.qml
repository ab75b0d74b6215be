pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// A campaign's settings and its schedule. What was changed waits in the store, with one bar that saves either.
FocusScope {
    id: root

    required property CampaignStore store
    readonly property CampaignSettings form: store.settings
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems
    readonly property ScheduleForm schedule: form.schedule

    function save() {
        form.save();
        fields.showWrong(null);
    }

    function saveSchedule() {
        schedule.save();
        fields.showWrong(hours);
    }

    /// After whoever asked has given the keyboard back.
    function showAsked() {
        const section = form.takeAsked();
        if (section !== "")
            fields.lead(section);
    }

    Component.onCompleted: {
        form.ensureLoaded();
        Qt.callLater(showAsked); // qmllint disable type
    }

    Connections {
        target: root.form

        function onSectionAsked() {
            Qt.callLater(root.showAsked); // qmllint disable type
        }
    }

    SectionedForm {
        id: fields
        anchors.fill: parent
        focus: true
        sections: root.form.sections
        editable: root.store.canWrite
        footRoom: bar.height

        OrvNotice {
            width: parent.width
            visible: text !== ""
            text: root.form.notice
        }

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvNotice {
            width: parent.width
            visible: text !== ""
            text: root.form.conflict
        }

        SettingsSection {
            width: parent.width
            key: "campaign"
            title: "Campaign"

            OrvField {
                width: parent.width
                focus: true
                label: "Name"
                placeholder: "Campaign name"
                text: root.values.name ?? ""
                error: root.errors.name ?? ""
                onEdited: text => root.form.draft.set("name", text)
            }

            OrvTagEditor {
                width: parent.width
                label: "Tags"
                help: "Labels to find it by in the campaign list, from Settings → Tags."
                placeholder: "Add a tag"
                tags: root.form.tags
                suggestions: root.form.tagSuggestions
                onAdded: texts => root.form.addTags(texts)
                onRemoved: key => root.form.removeTag(key)
            }

            FormNote {
                width: parent.width
                text: root.form.tagNote
                failed: root.form.knownTags.message !== ""
                onRetryRequested: root.form.retryTags()
            }
        }

        SettingsSenders {
            width: parent.width
            picker: root.form.senders
        }

        SettingsSending {
            width: parent.width
            form: root.form
        }

        SettingsLimits {
            width: parent.width
            form: root.form
        }

        SettingsSection {
            width: parent.width
            key: "copies"
            title: "Copies"

            OrvField {
                width: parent.width
                label: "CC"
                placeholder: "None"
                help: "Copied on every campaign email. Separate with commas."
                text: root.values.cc ?? ""
                error: root.errors.cc ?? ""
                onEdited: text => root.form.draft.set("cc", text)
            }

            OrvField {
                width: parent.width
                label: "BCC"
                placeholder: "None"
                help: "A hidden copy of every campaign email. Test emails copy nobody."
                text: root.values.bcc ?? ""
                error: root.errors.bcc ?? ""
                onEdited: text => root.form.draft.set("bcc", text)
            }
        }

        SettingsSection {
            width: parent.width
            key: "dates"
            title: "Dates"
            help: "It sends between these dates, only inside the schedules below, spread evenly across each one."

            Row {
                spacing: 16

                OrvDateField {
                    label: "Start date"
                    placeholder: "On launch"
                    help: "YYYY-MM-DD. Empty: on launch."
                    text: root.values.startDate ?? ""
                    problem: root.errors.startDate ?? ""
                    onEdited: text => root.form.draft.set("startDate", text)
                }

                OrvDateField {
                    label: "End date"
                    placeholder: "No end date"
                    help: "YYYY-MM-DD. Empty: no end date."
                    text: root.values.endDate ?? ""
                    problem: root.errors.endDate ?? ""
                    onEdited: text => root.form.draft.set("endDate", text)
                }
            }
        }

        OrvDivider {
            width: parent.width
        }

        ScheduleSection {
            id: hours
            width: parent.width
            form: root.schedule
        }
    }

    SaveBar {
        id: bar

        readonly property bool hoursWait: root.schedule.unsaved || root.schedule.saving

        x: fields.listWidth
        y: root.height - height
        width: root.width - x
        shown: changed || (hoursWait && root.store.canWrite)
        changed: root.form.dirty || root.form.saving
        saveText: "Save settings"
        saving: root.form.saving
        canSave: root.form.canSave
        hasErrors: Object.keys(root.errors).length > 0
        sections: root.form.sections
        onSaveRequested: root.save()
        onDiscardRequested: root.form.discard()
        onSectionRequested: key => fields.lead(key)

        OrvButton {
            visible: bar.hoursWait
            kind: bar.changed ? "secondary" : "primary"
            text: "Save schedule"
            busy: root.schedule.saving
            enabled: root.schedule.canSave || root.schedule.saving
            onClicked: root.saveSchedule()
        }
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.form.canSave || (root.schedule.dirty && root.schedule.canSave)
        onActivated: {
            root.form.saveAll();
            fields.showWrong(null);
        }
    }
}
