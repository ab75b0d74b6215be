import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// One campaign: its trail and state, what can be done to the whole of it, and its tabs.
FocusScope {
    id: root

    required property CampaignStore store

    /// By the tab's key.
    readonly property var tabPages: ({
        sequence: sequence,
        leads: leads,
        settings: settings,
        subsequences: subsequences,
        stats: stats,
        proof: proof
    })
    /// Takes the place of the tabs.
    readonly property bool proofShown: store.tab === "proof"

    onProofShownChanged: {
        if (!proofShown)
            tabs.forceActiveFocus(Qt.OtherFocusReason);
    }

    Component.onCompleted: store.ensureLoaded()

    CampaignHeader {
        id: header
        width: root.width
        store: root.store
    }

    OrvTabs {
        id: tabs
        x: Theme.pageSide
        y: header.height
        width: root.width - 2 * x
        focus: true
        visible: root.store.campaign.state !== Resource.Error && !root.proofShown
        label: "Campaign sections"
        options: root.store.tabs
        current: root.store.tab
        onChosen: key => root.store.tab = key
    }

    OrvDivider {
        id: line
        y: tabs.y + (root.proofShown ? 0 : tabs.height)
        width: root.width
    }

    LaunchPath {
        id: path
        y: line.y + line.height
        width: root.width
        height: visible ? implicitHeight : 0
        visible: shown && !root.proofShown
        store: root.store
    }

    ResourceView {
        y: path.y + path.height
        width: root.width
        height: root.height - y
        resource: root.store.campaign
        errorTitle: "Couldn’t load this campaign"
        errorAction: "Back to campaigns"
        onErrorActionRequested: root.store.openCampaigns()
        onRetryRequested: root.store.refresh()

        Loader {
            anchors.fill: parent
            active: root.store.campaign.hasContent
            sourceComponent: root.tabPages[root.store.tab]
        }
    }

    Component {
        id: sequence

        SequenceTab {
            editor: root.store.sequence
            canWrite: root.store.canWrite
        }
    }

    Component {
        id: leads

        LeadsTab {
            campaign: root.store
        }
    }

    Component {
        id: settings

        SettingsTab {
            store: root.store
        }
    }

    Component {
        id: subsequences

        SubsequencesTab {
            store: root.store
        }
    }

    Component {
        id: stats

        StatsTab {
            store: root.store.stats
        }
    }

    Component {
        id: proof

        ProofPage {
            store: root.store
        }
    }

    NameFormDialog {
        form: root.store.renameForm
    }

    Shortcut {
        sequence: "Ctrl+Tab"
        onActivated: tabs.step(1)
    }

    Shortcut {
        sequence: "Ctrl+Shift+Tab"
        onActivated: tabs.step(-1)
    }
}
