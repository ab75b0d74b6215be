import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// What came of each email of the sequence; variants stand indented below their step.
OrvTable {
    id: root

    required property CampaignStatsStore store

    title: "Emails of the sequence"
    name: "campaign-emails"
    scrolledByPage: true
    model: store.emailRows
    keyRole: "id"
    columns: [
        OrvColumn { id: emailColumn; key: "email"; title: "Email"; fill: true; minimumWidth: 200 },
        OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 80; alignment: Text.AlignRight },
        OrvColumn { id: repliedColumn; key: "replied"; title: "Replied"; preferredWidth: 96; alignment: Text.AlignRight },
        OrvColumn { id: positiveColumn; key: "positive"; title: "Positive"; preferredWidth: 80; alignment: Text.AlignRight },
        OrvColumn { id: bouncedColumn; key: "bounced"; title: "Bounced"; preferredWidth: 96; alignment: Text.AlignRight }
    ]

    delegate: OrvTableRow {
        id: row

        required property string title
        required property string detail
        required property bool variant
        required property string sent
        required property string replied
        required property string repliedRate
        required property string positive
        required property string bounced
        required property string bouncedRate
        required property bool bouncesHigh

        label: detail + ", " + title

        OrvTwoLineCell {
            readonly property real indent: row.variant ? 20 : 0

            column: emailColumn
            x: emailColumn.x + indent
            width: emailColumn.width - indent
            title: row.title
            detail: row.detail
        }
        OrvTextCell { column: sentColumn; text: row.sent }
        RateCell { column: repliedColumn; text: row.replied; rate: row.repliedRate }
        OrvTextCell { column: positiveColumn; text: row.positive }
        RateCell { column: bouncedColumn; text: row.bounced; rate: row.bouncedRate; color: row.bouncesHigh ? Theme.negative : Theme.text }
    }
}
