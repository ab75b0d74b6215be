import QtQuick
import Orvella.Design
import Orvella.App

/// A campaign in the list.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn statusColumn
    required property OrvColumn progressColumn
    required property OrvColumn sentColumn
    required property OrvColumn repliedColumn
    required property OrvColumn positiveColumn
    required property OrvColumn bouncedColumn
    required property OrvColumn actionsColumn

    required property string name
    required property list<string> tags
    required property string statusWord
    required property string statusLabel
    required property string facts
    required property real progress
    required property string progressText
    required property string sentText
    required property string repliedText
    required property string repliedRate
    required property string positiveText
    required property string bouncedText
    required property string bouncedRate
    required property bool bouncesHigh
    required property bool unsaved

    label: name + ", " + statusLabel + (unsaved ? ", not saved" : "")

    OrvTwoLineCell {
        column: root.nameColumn
        title: root.name
        detail: root.facts
        tagsSaid: (root.unsaved ? ["Not saved"] : []).concat([...(root.tags ?? [])]).join(", ")

        OrvBadge {
            visible: root.unsaved
            text: "Not saved"
            tone: "negative"
            shape: "square"
        }

        Repeater {
            // Two tell campaigns apart; the rest would push the name out. By number, so that a row which comes to stand
            // for another campaign keeps its tags' items.
            model: Math.min(2, root.tags?.length ?? 0)

            OrvTag {
                required property int index

                text: root.tags?.[index] ?? ""
            }
        }
    }

    OrvCell {
        column: root.statusColumn
        label: root.statusLabel

        CampaignBadge {
            anchors.verticalCenter: parent.verticalCenter
            visible: !ring.shown
            status: root.statusWord
            text: root.statusLabel
        }

        OrvBusyRing {
            id: ring
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            running: root.busy
            color: Theme.text2
        }
    }

    ProgressCell {
        column: root.progressColumn
        value: root.progress
        text: root.progressText
        running: root.statusWord === "running"
    }

    OrvTextCell {
        column: root.sentColumn
        text: root.sentText
    }

    RateCell {
        column: root.repliedColumn
        text: root.repliedText
        rate: root.repliedRate
    }

    OrvTextCell {
        column: root.positiveColumn
        text: root.positiveText
        color: text === "–" || text === "0" ? Theme.text : Theme.positive
    }

    RateCell {
        column: root.bouncedColumn
        text: root.bouncedText
        rate: root.bouncedRate
        color: root.bouncesHigh ? Theme.negative : Theme.text
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.name
    }
}
