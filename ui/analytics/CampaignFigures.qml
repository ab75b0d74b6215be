import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Analytics

/// What each campaign did in the range.
OrvTable {
    id: root

    required property AnalyticsStore store

    title: "Campaigns"
    name: "analytics-campaigns"
    rowHeight: 44
    scrolledByPage: true
    model: store.campaignRows
    keyRole: "id"
    sortKey: store.sortKey
    sortDescending: store.sortDescending
    onSortRequested: (key, descending) => store.sort(key, descending)
    onOpened: key => store.openCampaign(key)
    columns: [
        OrvColumn { id: nameColumn; key: "name"; title: "Campaign"; fill: true; sortable: true; minimumWidth: 156 },
        OrvColumn { id: statusColumn; key: "status"; title: "Status"; preferredWidth: 96; sortable: true },
        OrvColumn { id: leadsColumn; key: "leads"; title: "Leads"; preferredWidth: 60; alignment: Text.AlignRight; sortable: true; yields: 4 },
        OrvColumn { id: contactedColumn; key: "contacted"; title: "Contacted"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true; yields: 3 },
        OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 56; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: openedColumn; key: "opened"; title: "Opened"; preferredWidth: 88; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: repliedColumn; key: "replied"; title: "Replied"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: clickedColumn; key: "clicked"; title: "Clicked"; preferredWidth: 84; alignment: Text.AlignRight; sortable: true; yields: 1 },
        OrvColumn { id: bouncedColumn; key: "bounced"; title: "Bounced"; preferredWidth: 76; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: interestedColumn; key: "interested"; title: "Interested"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: opportunitiesColumn; key: "opportunities"; title: "Opportunities"; preferredWidth: 92; alignment: Text.AlignRight; sortable: true; yields: 2 },
        OrvColumn { id: valueColumn; key: "value"; title: "Value"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true }
    ]

    delegate: OrvTableRow {
        id: row

        required property string name
        required property string status
        required property string statusLabel
        required property string leadsText
        required property string contactedText
        required property string sentText
        required property string openedText
        required property string openedRate
        required property string repliedText
        required property string repliedRate
        required property string clickedText
        required property string clickedRate
        required property string bouncedText
        required property string bouncedRate
        required property bool bouncesHigh
        required property string interestedText
        required property string opportunitiesText
        required property string valueText

        label: name + ", " + statusLabel

        OrvTextCell { column: nameColumn; text: row.name; font: Theme.bodyStrong }
        OrvCell {
            column: statusColumn
            label: row.statusLabel

            CampaignBadge {
                anchors.verticalCenter: parent.verticalCenter
                status: row.status
                text: row.statusLabel
            }
        }
        OrvTextCell { column: leadsColumn; text: row.leadsText }
        OrvTextCell { column: contactedColumn; text: row.contactedText }
        OrvTextCell { column: sentColumn; text: row.sentText }
        RateCell { column: openedColumn; text: row.openedText; rate: row.openedRate }
        RateCell { column: repliedColumn; text: row.repliedText; rate: row.repliedRate }
        RateCell { column: clickedColumn; text: row.clickedText; rate: row.clickedRate }
        RateCell { column: bouncedColumn; text: row.bouncedText; rate: row.bouncedRate; color: row.bouncesHigh ? Theme.negative : Theme.text }
        OrvTextCell { column: interestedColumn; text: row.interestedText }
        OrvTextCell { column: opportunitiesColumn; text: row.opportunitiesText }
        OrvTextCell { column: valueColumn; text: row.valueText }
    }
}
