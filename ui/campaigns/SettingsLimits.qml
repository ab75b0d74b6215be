import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// How much a campaign sends.
SettingsSection {
    id: root

    required property CampaignSettings form
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems

    key: "limits"
    title: "Limits"

    Grid {
        width: parent.width
        columns: 2
        columnSpacing: 24
        rowSpacing: 16

        OrvNumberField {
            width: (root.width - 24) / 2
            label: "Daily cap per inbox"
            help: "The most it climbs to, all campaigns on the inbox together. Each inbox ramps up by itself: 2 more than its busiest of the last 3 days."
            from: 1
            to: 500
            keepsText: true
            text: root.values.dailyCap ?? ""
            error: root.errors.dailyCap ?? ""
            onTyped: text => root.form.draft.set("dailyCap", text)
        }

        OrvNumberField {
            width: (root.width - 24) / 2
            label: "Gap between sends (minutes)"
            help: "Per inbox. Never two sends closer than this."
            from: 1
            to: 1440
            keepsText: true
            text: root.values.gap ?? ""
            error: root.errors.gap ?? ""
            onTyped: text => root.form.draft.set("gap", text)
        }

        OrvNumberField {
            width: (root.width - 24) / 2
            label: "Campaign daily limit"
            help: "All its inboxes together. Empty: no limit."
            placeholder: "No limit"
            from: 1
            to: 100000
            step: 10
            clearable: true
            keepsText: true
            text: root.values.dailyLimit ?? ""
            error: root.errors.dailyLimit ?? ""
            onTyped: text => root.form.draft.set("dailyLimit", text)
        }

        OrvNumberField {
            width: (root.width - 24) / 2
            label: "Max new leads a day"
            help: "First emails only. Empty: no limit."
            placeholder: "No limit"
            from: 1
            to: 100000
            step: 10
            clearable: true
            keepsText: true
            text: root.values.maxNewPerDay ?? ""
            error: root.errors.maxNewPerDay ?? ""
            onTyped: text => root.form.draft.set("maxNewPerDay", text)
        }
    }
}
