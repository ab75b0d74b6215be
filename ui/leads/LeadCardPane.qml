import QtQuick
import Orvella.Design
import Orvella.Leads

/// Everything that is known of one lead.
Column {
    id: root

    required property LeadResults results
    required property bool canWrite
    readonly property LeadCard card: results.card

    spacing: 16

    Text {
        visible: text !== ""
        width: parent.width
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.card.about
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    UnlockBlock {
        visible: root.card.locked
        width: parent.width
        allowance: root.results.actions.allowance
        leadId: root.card.leadId
        canWrite: root.canWrite
    }

    OrvNotice {
        id: trouble
        visible: root.card.problem !== ""
        width: parent.width
        text: root.card.problem
    }

    OrvButton {
        visible: trouble.visible
        text: "Try again"
        onClicked: root.card.tryAgain()
    }

    CardSection {
        width: parent.width
        title: "Person"
        facts: root.card.person
        copied: "Email"
        onCopyRequested: root.card.copyEmail(root.card.leadId)
    }

    CardSection {
        width: parent.width
        title: "Company"
        facts: root.card.company
        link: "Website"
        tagTitles: ["Keywords", "Technologies"]
        tagSets: [root.card.keywords, root.card.technologies]
        onLinkOpened: root.card.openWebsite()
    }

    CardSection {
        width: parent.width
        title: "In lists"
        emptyText: root.card.complete && root.card.lists.length === 0 ? "None" : ""

        Flow {
            width: parent.width
            spacing: 6

            Repeater {
                model: ChoiceList { options: root.card.lists }

                OrvLink {
                    required property choice modelData

                    text: modelData.label
                    onClicked: root.card.openList(modelData.key)
                }
            }
        }
    }

    CardSection {
        width: parent.width
        title: "Campaigns"
        emptyText: root.card.complete && root.card.campaigns.length === 0 ? "Never enrolled in a campaign." : ""

        Repeater {
            model: root.card.campaigns

            CardCampaign {
                required property var modelData

                width: parent.width
                name: modelData.name
                detail: modelData.detail
                status: modelData.status
                statusLabel: modelData.statusLabel
                onOpened: root.card.openCampaign(modelData.id)
            }
        }
    }

    CardSection {
        width: parent.width
        title: "Record"
        facts: root.card.record
    }
}
