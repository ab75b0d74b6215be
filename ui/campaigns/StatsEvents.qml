import QtQuick
import Orvella.Design

/// What happened, newest first: emails with their state, or everything.
OrvTable {
    id: root

    property string firstTitle: ""
    property bool withState: false

    name: withState ? "campaign-messages" : "campaign-activity"
    scrolledByPage: true
    keyRole: "id"
    columns: [
        OrvColumn { id: titleColumn; key: "title"; title: root.firstTitle; fill: true; minimumWidth: 200; maximumWidth: 1200 },
        OrvColumn { id: stateColumn; key: "state"; title: "State"; preferredWidth: 96; visible: root.withState },
        OrvColumn { id: whenColumn; key: "when"; title: "When"; preferredWidth: 108; alignment: Text.AlignRight }
    ]

    delegate: OrvTableRow {
        id: row

        required property string title
        required property string detail
        required property string state
        required property string stateLabel
        required property string when

        label: title + ", " + detail

        OrvTwoLineCell { column: titleColumn; title: row.title; detail: row.detail }
        OrvCell {
            column: stateColumn
            label: row.stateLabel

            OrvBadge {
                visible: root.withState
                anchors.verticalCenter: parent.verticalCenter
                text: row.stateLabel
                tone: row.state === "sent" ? "positive" : row.state === "failed" ? "negative" : "neutral"
                shape: row.state === "failed" ? "square" : row.state === "sent" ? "dot" : "ring"
            }
        }
        OrvTextCell { column: whenColumn; text: row.when }
    }
}
