import QtQuick
import Orvella.Design
import Orvella.Settings

/// The workspace itself, and its end.
SettingsPane {
    id: root

    readonly property WorkspaceForm form: store.workspaceForm

    summary: "You’re here as " + store.role + "."

    WorkspaceFields {
        id: fields
        anchors.fill: parent
        focus: true
        store: root.store
        form: root.form

        OrvField {
            width: parent.width
            focus: true
            enabled: root.store.canManage
            label: "Workspace name"
            text: fields.values.name ?? ""
            error: fields.errors.name ?? ""
            onEdited: text => root.form.set("name", text)
        }

        Row {
            visible: root.store.publicId !== ""
            width: parent.width
            spacing: 8

            OrvField {
                width: parent.width - copy.width - 8
                readOnly: true
                label: "Workspace ID"
                help: "Quote it when you ask for help."
                text: root.store.publicId
            }

            OrvButton {
                id: copy
                y: 22
                text: "Copy"
                onClicked: root.store.copyWorkspaceId()
            }
        }

        OrvField {
            width: parent.width
            readOnly: true
            label: "Link"
            help: "The web app's link to this workspace."
            text: root.store.slug
        }

        OrvField {
            visible: root.store.plan !== ""
            width: parent.width
            readOnly: true
            label: "Plan"
            help: "Change it on the web app's billing page."
            text: root.store.plan
        }

        OrvSuggestField {
            width: parent.width
            enabled: root.store.canManage
            label: "Time zone"
            placeholder: "Europe/London"
            help: "Sending hours and daily figures use it."
            text: fields.values.timeZone ?? ""
            error: fields.errors.timeZone ?? ""
            suggestions: Array.from(root.form.zones(text))
            onEdited: text => root.form.set("timeZone", text)
            onChosen: key => root.form.set("timeZone", key)
        }

        OrvNumberField {
            width: 208
            enabled: root.store.canManage
            label: "Opportunity value"
            suffix: "$"
            help: "What one opportunity is worth in the analytics."
            from: 0
            to: root.form.mostValue
            clearable: true
            keepsText: true
            text: fields.values.opportunityValue ?? ""
            error: fields.errors.opportunityValue ?? ""
            onTyped: text => root.form.set("opportunityValue", text)
        }

        Column {
            visible: root.store.canDelete || root.store.deleting
            width: parent.width
            topPadding: 8
            spacing: 12

            OrvDivider {
                width: parent.width
            }

            Text {
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: "Removes every campaign, lead, mailbox and message in it. This can’t be undone."
                font: Theme.body
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            OrvButton {
                kind: "danger"
                text: "Delete workspace…"
                busy: root.store.deleting
                onClicked: root.store.deleteWorkspace()
            }
        }
    }
}
