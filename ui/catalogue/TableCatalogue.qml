import QtQuick
import Orvella.Design

/// OrvTable with every state of a row: ticked, busy, current, sorted, with a failed next page.
Rectangle {
    id: root

    color: Theme.surface

    ListModel {
        id: records

        Component.onCompleted: {
            const names = ["Insurance brokers, DACH", "Payroll switchers, Ireland", "Fleet maintenance, Benelux",
                "Solar installers, Q3", "Clinic schedulers, Nordics", "Property managers, Iberia", "Boutique hotels, winter"];
            const words = ["Running", "Completed", "Running", "Paused", "Draft"];
            for (let i = 0; i < 14; ++i) {
                append({id: "c" + i, name: names[i % names.length], facts: "5 steps · 16 inboxes · Launched 21 Oct",
                    status: words[i % words.length], sent: 8931 - i * 417, replied: 231 - i * 13});
            }
        }
    }

    OrvTable {
        id: table
        anchors.fill: parent
        title: "Campaigns"
        model: records
        tickable: true
        sortKey: "replied"
        tickedKeys: ["c3", "c4"]
        busyKeys: ["c5"]
        moreFailed: true
        totalCount: 3400
        footRoom: bar.footRoom
        columns: [
            OrvColumn { id: nameColumn; key: "name"; title: "Campaign"; fill: true; sortable: true; minimumWidth: 160 },
            OrvColumn { id: statusColumn; key: "status"; title: "Status"; preferredWidth: 88; sortable: true },
            OrvColumn { id: sentColumn; key: "sent"; title: "Sent"; preferredWidth: 72; alignment: Text.AlignRight; sortable: true },
            OrvColumn { id: repliedColumn; key: "replied"; title: "Replied"; preferredWidth: 88; alignment: Text.AlignRight; sortable: true }
        ]
        delegate: OrvTableRow {
            id: row

            required property string name
            required property string facts
            required property string status
            required property int sent
            required property int replied

            label: name + ", " + status

            OrvTwoLineCell { column: nameColumn; title: row.name; detail: row.facts }
            OrvTextCell { column: statusColumn; text: row.status }
            OrvTextCell { column: sentColumn; text: row.sent.toLocaleString(Qt.locale(), "f", 0) }
            OrvTextCell { column: repliedColumn; text: row.replied.toLocaleString(Qt.locale(), "f", 0) }
        }
        onSortRequested: (key, descending) => {
            sortKey = key;
            sortDescending = descending;
        }
        onTickToggled: key => tickedKeys = tickedKeys.includes(key) ? tickedKeys.filter(other => other !== key) : [...tickedKeys, key]
        onTickAllToggled: tickedKeys = []
        onTicksCleared: tickedKeys = []
        Component.onCompleted: {
            show("c1");
            focusRows();
        }
    }

    OrvSelectionBar {
        id: bar
        count: table.tickedKeys.length
        onCleared: table.tickedKeys = []

        OrvButton { kind: "ghost"; text: "Pause"; iconName: "media-playback-pause" }
        OrvButton { kind: "ghost"; text: "Resume"; iconName: "media-playback-start" }
    }
}
