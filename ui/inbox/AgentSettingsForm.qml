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

    Rectangle {
        width: list.width
        height: root.height
        color: Theme.surface

        Rectangle {
            x: parent.width - 1
            width: 1
            height: parent.height
            color: Theme.border
        }
    }

    AgentSectionList {
        id: list
        width: root.width >= 760 ? 200 : 0
        visible: width > 0
        height: root.height
        sections: root.agent.sections
        current: fields.sectionInView
        onChosen: key => fields.reveal(fields.sectionOf(key))
    }

    OrvForm {
        id: fields

        /// Of what the person was led to, or else what has been scrolled to the top.
        readonly property string sectionInView: {
            let inView = "";
            for (const entry of root.agent.sections) {
                const section = sectionOf(entry.key);
                for (let at = followed; at; at = at.parent)
                    if (at === section) return entry.key;
                const top = section.y + (section.parent === settings ? settings.y : 0);
                if (inView === "" || top <= contentY + 56) inView = entry.key;
            }
            return inView;
        }

        function sectionOf(key: string): Item {
            return key === "mode" ? mode : key === "campaigns" ? campaigns : settings.sectionOf(key);
        }

        x: list.width
        width: root.width - x
        height: root.height - bar.height
        focus: true

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
            id: mode
            width: parent.width
            mode: root.agent.mode
        }

        OrvDivider {
            width: parent.width
        }

        AgentCampaignsSection {
            id: campaigns
            width: parent.width
            campaigns: root.agent.campaigns
            onRetryRequested: root.agent.refresh()
        }

        OrvDivider {
            width: parent.width
        }

        AgentFields {
            id: settings
            width: parent.width
            enabled: root.agent.canWrite
            form: root.form
        }
    }

    SaveBar {
        id: bar
        x: list.width
        y: root.height - height
        width: root.width - x
        shown: root.form.dirty || root.form.saving
        saveText: "Save changes"
        saving: root.form.saving
        canSave: root.form.canSave
        hasErrors: Object.keys(root.form.draft.problems).length > 0
        onSaveRequested: root.save()
        onDiscardRequested: root.form.discard()
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.form.canSave
        onActivated: root.save()
    }
}
