import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// A project's domains and, beside them, the rest of its form. What was changed waits in the store, with a bar that saves
/// or discards it.
FocusScope {
    id: root

    required property SetupProjectStore store
    readonly property SetupForm form: store.form
    readonly property var errors: form.draft.problems

    function save() {
        store.domains.addTyped();
        form.save();
    }

    function showProblem() {
        // Told once with what the notice says, which says nothing where the tab has only now been made.
        if (form.problem !== "")
            Announcer.say(form.problem, "error");
        if (errors.domains !== undefined)
            domains.focusField();
        else
            fields.showWrong(null);
    }

    Connections {
        target: root.form
        function onRefused() {
            root.showProblem();
        }
    }

    DomainsPane {
        id: domains
        width: root.width >= 1000 ? 312 : 264
        height: root.height
        domains: root.store.domains
        problem: root.errors.domains ?? ""
        editable: root.store.editable
        makesInboxes: root.store.makesInboxes
    }

    OrvForm {
        id: fields
        x: domains.width
        width: root.width - x
        height: root.height - bar.height
        focus: true
        maximumWidth: 624
        editable: root.store.editable

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

        AdminFields {
            width: parent.width
            store: root.store
        }

        OrvDivider {
            width: parent.width
        }

        PeopleFields {
            width: parent.width
            store: root.store
        }

        OrvDivider {
            width: parent.width
        }

        SenderFields {
            width: parent.width
            form: root.form
        }
    }

    SaveBar {
        id: bar
        x: domains.width
        y: root.height - height
        width: root.width - x
        shown: root.form.dirty || root.form.saving
        saveText: "Save project"
        saving: root.form.saving
        canSave: root.form.canSave
        hasErrors: Object.keys(root.errors).length > 0
        onSaveRequested: root.save()
        onDiscardRequested: {
            root.form.discard();
            root.store.domains.clear();
        }
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.form.canSave || (root.store.editable && root.store.domains.typed.trim() !== "")
        onActivated: root.save()
    }
}
