import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Adds leads to a campaign, shows how far that is, and then says what came of it.
OnDemand {
    id: root

    required property AddToCampaign adding
    readonly property bool ended: adding.ended
    readonly property bool busy: adding.form.busy
    readonly property Resource campaigns: adding.campaigns
    readonly property bool failed: campaigns.state === Resource.Error || (campaigns.state === Resource.Offline && !campaigns.hasContent)

    shown: adding.form.shown

    sourceComponent: OrvDialog {
        title: root.ended ? "Added to campaign" : "Add to campaign"
        lead: root.ended ? root.adding.summary : root.adding.hasNone ? "No campaigns yet" : ""
        text: root.ended ? "" : root.adding.hasNone ? "Your leads are ready. Start a campaign and they go straight in." : root.adding.about
        confirmText: root.ended ? "Open campaign" : root.adding.submitLabel
        cancelText: root.ended ? "Done" : root.busy ? "Hide" : "Cancel"
        confirmEnabled: root.ended || root.adding.canSubmit
        error: root.adding.form.error
        initialFocus: pick
        onConfirmed: root.ended ? root.adding.openCampaign() : root.adding.submit()
        onCancelled: root.adding.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.adding.recovery
        }

        OrvSelect {
            id: pick
            visible: !root.ended && !root.adding.hasNone && !root.failed
            enabled: !root.busy
            width: parent.width
            label: "Campaign"
            placeholder: root.campaigns.state === Resource.Loading ? "Loading your campaigns…" : "Pick a campaign"
            options: root.adding.options
            current: root.adding.current
            onChosen: key => root.adding.current = key
        }

        OrvNotice {
            width: parent.width
            visible: !root.ended && root.failed
            tone: "negative"
            text: "Couldn’t load campaigns. " + root.campaigns.message
        }

        OrvButton {
            visible: !root.ended && root.failed
            text: "Try again"
            onClicked: root.adding.retry()
        }

        OrvField {
            visible: !root.ended && root.adding.isNew
            enabled: !root.busy
            width: parent.width
            label: "Name your campaign"
            placeholder: "e.g. Insurance owners, US. Press Enter to create it."
            text: root.adding.newName
            onEdited: text => root.adding.newName = text
        }

        OrvCheckbox {
            visible: !root.ended
            enabled: !root.busy
            text: "Skip leads in other campaigns"
            checked: root.adding.skipOthers
            onToggled: root.adding.skipOthers = checked
        }

        JobProgress {
            visible: root.busy
            width: parent.width
            form: root.adding.form
        }

        FactList {
            visible: root.ended
            width: parent.width
            title: ""
            facts: root.adding.result
        }
    }
}
