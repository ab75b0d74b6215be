import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Analytics

/// What each sending account did in the range.
OrvTable {
    id: root

    required property AnalyticsStore store

    title: "Accounts"
    name: "analytics-accounts"
    rowHeight: 44
    scrolledByPage: true
    model: store.accountRows
    keyRole: "id"
    sortKey: store.sortKey
    sortDescending: store.sortDescending
    onSortRequested: (key, descending) => store.sort(key, descending)
    columns: [
        OrvColumn { id: addressColumn; key: "address"; title: "Account"; fill: true; sortable: true; minimumWidth: 168 },
        OrvColumn { id: statusColumn; key: "status"; title: "Status"; preferredWidth: 84; sortable: true },
        OrvColumn { id: healthColumn; key: "health"; title: "Health"; preferredWidth: 88; sortable: true },
        OrvColumn { id: inboxColumn; key: "inbox"; title: "Inbox 7d %"; preferredWidth: 76; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: contactedColumn; key: "contacted"; title: "Contacted"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true; yields: 2 },
        OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 56; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: openedColumn; key: "opened"; title: "Opened"; preferredWidth: 88; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: repliedColumn; key: "replied"; title: "Replied"; preferredWidth: 80; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: clickedColumn; key: "clicked"; title: "Clicked"; preferredWidth: 84; alignment: Text.AlignRight; sortable: true; yields: 1 },
        OrvColumn { id: bouncedColumn; key: "bounced"; title: "Bounced"; preferredWidth: 76; alignment: Text.AlignRight; sortable: true },
        OrvColumn { id: interestedColumn; key: "interested"; title: "Interested"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true }
    ]

    delegate: OrvTableRow {
        id: row

        required property string address
        required property string status
        required property string statusLabel
        required property var health
        required property string healthLabel
        required property string inboxText
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

        label: address + ", " + statusLabel

        // Addresses are told apart by both their ends.
        OrvTextCell { column: addressColumn; text: row.address; font: Theme.bodyStrong; elide: Text.ElideMiddle }
        OrvCell {
            column: statusColumn
            label: row.statusLabel

            AccountBadge {
                anchors.verticalCenter: parent.verticalCenter
                word: row.status
                text: row.statusLabel
            }
        }
        OrvCell {
            column: healthColumn
            label: row.healthLabel

            AccountBadge {
                visible: !!row.health
                anchors.verticalCenter: parent.verticalCenter
                word: row.health ?? ""
                text: row.healthLabel
            }

            Text {
                visible: !row.health
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: row.healthLabel
                font: Theme.body
                color: Theme.text3
                Accessible.ignored: true
            }
        }
        OrvTextCell { column: inboxColumn; text: row.inboxText }
        OrvTextCell { column: contactedColumn; text: row.contactedText }
        OrvTextCell { column: sentColumn; text: row.sentText }
        RateCell { column: openedColumn; text: row.openedText; rate: row.openedRate }
        RateCell { column: repliedColumn; text: row.repliedText; rate: row.repliedRate }
        RateCell { column: clickedColumn; text: row.clickedText; rate: row.clickedRate }
        RateCell { column: bouncedColumn; text: row.bouncedText; rate: row.bouncedRate; color: row.bouncesHigh ? Theme.negative : Theme.text }
        OrvTextCell { column: interestedColumn; text: row.interestedText }
    }
}
