import QtQuick
import Orvella.Design
import Orvella.Leads

/// What is known of the lead under the pointer, beside its row. It comes and goes with the pointer and takes no click.
Item {
    id: root

    required property LeadTable table
    required property LeadCard card
    readonly property list<string> words: [...card.lists].map(list => list.label)

    x: Math.max(0, table.width - 360)
    z: 2
    width: 344
    visible: settled.done && card.peeking
    enabled: false
    Accessible.ignored: true

    function place() {
        const row = table.itemOf(card.leadId);
        if (!row)
            return;
        const below = row.mapToItem(root.parent, 0, row.height).y + 4;
        const fits = below + panel.height <= height - table.footRoom;
        panel.y = fits ? below : Math.max(0, below - row.height - panel.height - 8);
    }

    // A pointer that passes shows nothing.
    Timer {
        id: settled

        property bool done: false

        interval: 400
        running: root.card.peeking
        onTriggered: {
            done = true;
            root.place();
        }
        onRunningChanged: if (running) done = false
    }

    Connections {
        target: root.card

        function onChanged() {
            if (settled.done && root.card.peeking)
                root.place();
        }
    }

    OrvFloat {
        id: panel
        width: root.width
        height: column.height + 24

        Column {
            id: column
            x: 16
            y: 12
            width: parent.width - 32

            Text {
                width: parent.width
                height: 20
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.card.name
                font: Theme.bodyBold
                color: Theme.text
            }

            Text {
                width: parent.width
                height: 24
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.card.about
                font: Theme.small
                color: Theme.text2
            }

            Repeater {
                model: ChoiceList { options: [...root.card.person, ...root.card.company].slice(0, 10) }

                CardFact {
                    required property choice modelData

                    width: column.width
                    label: modelData.label
                    value: modelData.detail
                }
            }

            CardFact {
                visible: root.words.length > 0
                width: column.width
                label: "In lists"
                value: [...root.words].join(", ")
            }

            Text {
                visible: root.card.complete
                width: parent.width
                topPadding: 4
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.card.campaigns.length === 0 ? "Never enrolled in a campaign."
                                                       : Array.from(root.card.campaigns).map(campaign => campaign.name).join(", ")
                font: Theme.small
                color: Theme.text2
            }
        }
    }
}
