import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// What each sender inbox did for the campaign in the range.
OrvTable {
    id: root

    required property CampaignStatsStore store

    title: "Sender inboxes"
    name: "campaign-inboxes"
    rowHeight: 44
    scrolledByPage: true
    model: store.inboxRows
    keyRole: "id"
    columns: [
        OrvColumn { id: inboxColumn; key: "address"; title: "Inbox"; fill: true; minimumWidth: 200 },
        OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 80; alignment: Text.AlignRight },
        OrvColumn { id: repliesColumn; key: "replied"; title: "Replies"; preferredWidth: 96; alignment: Text.AlignRight },
        OrvColumn { id: interestedColumn; key: "interested"; title: "Interested"; preferredWidth: 80; alignment: Text.AlignRight },
        OrvColumn { id: bouncedColumn; key: "bounced"; title: "Bounced"; preferredWidth: 96; alignment: Text.AlignRight }
    ]

    delegate: OrvTableRow {
        id: row

        required property string address
        required property string sentText
        required property string repliedText
        required property string repliedRate
        required property string interestedText
        required property string bouncedText
        required property string bouncedRate
        required property bool bouncesHigh

        label: address

        OrvTextCell { column: inboxColumn; text: row.address; font: Theme.bodyStrong; elide: Text.ElideMiddle }
        OrvTextCell { column: sentColumn; text: row.sentText }
        RateCell { column: repliesColumn; text: row.repliedText; rate: row.repliedRate }
        OrvTextCell { column: interestedColumn; text: row.interestedText }
        RateCell { column: bouncedColumn; text: row.bouncedText; rate: row.bouncedRate; color: row.bouncesHigh ? Theme.negative : Theme.text }
    }
}
