import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// A form of the workspace's settings with what is said above it and the bar that saves it.
FocusScope {
    id: root

    required property SettingsStore store
    required property WorkspaceForm form
    default property alias content: body.data
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems

    function save() {
        form.save();
        fields.showWrong(null);
    }

    ResourceView {
        width: root.width
        height: root.height - bar.height
        resource: root.store.workspace
        errorTitle: "Couldn’t load the workspace"
        onRetryRequested: root.store.refresh()

        OrvForm {
            id: fields
            anchors.fill: parent
            focus: true

            RestoredNotice {
                width: parent.width
                recovery: root.form.recovery
            }

            OrvNotice {
                width: parent.width
                visible: text !== ""
                tone: "negative"
                text: root.form.problem
            }

            OrvNotice {
                width: parent.width
                visible: text !== ""
                text: root.form.conflict
            }

            OrvNotice {
                width: parent.width
                visible: !root.store.canManage
                text: "Only owners and admins can change it."
            }

            Column {
                id: body
                width: parent.width
                spacing: 16
            }
        }
    }

    SaveBar {
        id: bar
        y: root.height - height
        width: root.width
        shown: root.form.dirty || root.form.saving
        saveText: "Save changes"
        saving: root.form.saving
        canSave: root.form.canSave
        hasErrors: Object.keys(root.errors).length > 0
        onSaveRequested: root.save()
        onDiscardRequested: root.form.discard()
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.form.canSave
        onActivated: root.save()
    }
}
