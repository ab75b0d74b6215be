import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Figures
import Orvella.Campaigns

/// What a campaign has achieved: totals and days of a range, then one table at a time.
FocusScope {
    id: root

    required property CampaignStatsStore store

    Component.onCompleted: store.ensureLoaded()

    Text {
        x: Theme.pageSide
        y: 8
        width: range.x - x - 16
        height: Theme.controlHeight
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.store.headLine
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Text {
        id: rangeText
        x: range.x - width - 12
        y: 8
        visible: root.width >= 1000
        height: Theme.controlHeight
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.store.rangeText
        font: Theme.small
        color: Theme.text3
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvSelect {
        id: range
        x: root.width - width - Theme.pageSide
        y: 8
        width: 168
        options: root.store.presets
        current: root.store.preset
        onChosen: key => root.store.preset = key
    }

    ResourceView {
        y: 46
        width: root.width
        height: root.height - y
        resource: root.store.summary
        skeletonRowHeight: 44
        errorTitle: "Couldn’t load the stats"
        onRetryRequested: root.store.refresh()

        ScrollPage {
            id: page
            anchors.fill: parent
            focus: true
            table: section.table
            belowHeight: 280

            FigureStrip {
                width: parent.width
                figures: root.store.figures
            }

            OrvDivider {
                width: parent.width
            }

            DailyChart {
                focus: true
                width: parent.width
                // In a low window the table's first rows show under it.
                height: root.store.days.length === 0 ? 180 : Math.max(220, Math.min(implicitHeight, page.viewHeight - 330))
                days: root.store.days
                series: root.store.series
                view: root.store.dayView
                onViewChosen: view => root.store.dayView = view
                onSeriesToggled: key => root.store.toggleSeries(key)
            }

            pinned: Column {
                width: parent?.width ?? 0
                bottomPadding: 8
                spacing: 8

                OrvTabs {
                    width: parent.width
                    label: "Sections of the statistics"
                    options: root.store.sections
                    current: root.store.section
                    onChosen: key => root.store.section = key
                }

                Text {
                    width: parent.width
                    textFormat: Text.PlainText
                    text: root.store.sectionText
                    font: Theme.small
                    color: Theme.text2
                    elide: Text.ElideRight
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }

            below: StatsSection {
                id: section
                anchors.fill: parent
                store: root.store
            }
        }
    }
}
