import QtQuick
import Orvella.App
import Orvella.Campaigns

/// In what order a campaign sends, and what stops it.
SettingsSection {
    id: root

    required property CampaignSettings form

    key: "sending"
    title: "Sending"

    SettingsCheck {
        width: parent.width
        form: root.form
        field: "prioritizeNew"
        text: "Prioritize new leads"
        help: "First emails take the day’s sends before follow-ups."
    }

    SettingsCheck {
        width: parent.width
        form: root.form
        field: "stopOnReply"
        text: "Stop the sequence when a lead replies"
        help: "Bounces and unsubscribe replies always stop it."
    }

    SettingsCheck {
        width: parent.width
        form: root.form
        field: "stopOnAutoReply"
        text: "Stop on auto reply"
        help: "An out-of-office reply stops the lead too."
    }

    SettingsCheck {
        width: parent.width
        form: root.form
        field: "stopCompanyOnReply"
        text: "Stop for the whole company"
        help: "A reply stops every lead at the same company domain."
    }

    SettingsCheck {
        width: parent.width
        form: root.form
        field: "unsubscribeHeader"
        text: "Insert unsubscribe header"
    }
}
