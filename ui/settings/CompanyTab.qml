import QtQuick
import Orvella.Design
import Orvella.Settings

/// What the company's opportunities are worth; the rest of its profile is written in the web app.
SettingsPane {
    id: root

    readonly property WorkspaceForm form: store.companyForm

    summary: "The rest of the company’s profile is edited in the web app."
    actions: OrvButton {
        text: "Open the web app"
        iconName: "internet-services"
        onClicked: root.store.openOnWeb("/settings/company")
    }

    WorkspaceFields {
        id: fields
        anchors.fill: parent
        focus: true
        store: root.store
        form: root.form

        OrvNumberField {
            width: 320
            focus: true
            enabled: root.store.canManage
            label: "Opportunity value"
            suffix: "$"
            help: "What one interested reply is worth. Opportunity totals in the Inbox, Analytics and Dashboard use it."
            from: 0
            to: root.form.mostValue
            clearable: true
            keepsText: true
            text: fields.values.opportunityValue ?? ""
            error: fields.errors.opportunityValue ?? ""
            onTyped: text => root.form.set("opportunityValue", text)
        }
    }
}
