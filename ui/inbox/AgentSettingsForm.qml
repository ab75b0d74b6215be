import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The agent's settings, section by section; what was typed waits for its button.
FocusScope {
    id: root

    required property AgentSettingsStore agent
    readonly property AgentForm form: agent.form

    function save() {
        form.save();
        fields.showWrong(null);
    }

    SectionedForm {
        id: fields
        anchors.fill: parent
        focus: true
        sections: root.agent.sections
        footRoom: bar.height

        OrvNotice {
            width: parent.width
            visible: text !== ""
            text: root.agent.warning
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

        OrvNotice {
            width: parent.width
            visible: text !== ""
            tone: "negative"
            text: root.form.problem
        }

        AgentModeSection {
            width: parent.width
            mode: root.agent.mode
        }

        OrvDivider {
            width: parent.width
        }

        AgentCampaignsSection {
            width: parent.width
            campaigns: root.agent.campaigns
            onRetryRequested: root.agent.refresh()
        }

        OrvDivider {
            width: parent.width
        }

        AgentFields {
            width: parent.width
            enabled: root.agent.canWrite
            form: root.form
        }
    }

    SaveBar {
        id: bar
        x: fields.listWidth
        y: root.height - height
        width: root.width - x
        shown: root.form.dirty || root.form.saving
        saveText: "Save changes"
        saving: root.form.saving
        canSave: root.form.canSave
        hasErrors: Object.keys(root.form.draft.problems).length > 0
        sections: root.agent.sections
        onSectionRequested: key => fields.lead(key)
        onSaveRequested: root.save()
        onDiscardRequested: root.form.discard()
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.form.canSave
        onActivated: root.save()
    }
}
