import QtQuick
import Orvella.Design
import Orvella.Rampup

/// A roadmap day by day: its stages over two charts, of warm-up and of campaigns, each with what was planned over what
/// was sent; or the same figures as a table.
Column {
    id: root

    required property RampupAccountStore store
    property string view: "chart"

    spacing: 12

    Item {
        width: root.width
        height: Theme.controlHeight

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Roadmap"
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        OrvSegments {
            anchors.right: parent.right
            label: "Roadmap by day"
            options: [{ key: "chart", label: "Chart", count: -1 }, { key: "table", label: "Table", count: -1 }]
            current: root.view
            onChosen: key => root.view = key
        }
    }

    StageBand {
        width: root.width
        stages: root.store.stages
    }

    Panel {
        id: warmup
        companion: campaigns
        visible: root.view === "chart"
        height: 230
        title: "Warm-up emails a day"
        series: root.store.warmupSeries
        emptyText: "No warm-up emails are planned."
    }

    Panel {
        id: campaigns
        companion: warmup
        visible: root.view === "chart"
        height: 210
        title: "Campaign emails a day"
        series: root.store.campaignSeries
        emptyText: "No campaign emails are planned."
    }

    Loader {
        active: root.view === "table"
        visible: active
        width: root.width
        height: 440
        sourceComponent: OrvChartTable {
            sidePadding: 12
            days: root.store.days
            series: root.store.tableSeries
            dayNotes: root.store.dayNotes
            noteTitle: "Stage"
        }
    }

    component Panel: OrvChart {
        width: root.width
        kind: "bar"
        days: root.store.days
        dayNotes: root.store.dayNotes
        today: root.store.today
    }
}
