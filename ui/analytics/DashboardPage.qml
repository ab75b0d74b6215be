import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Analytics
import Orvella.Figures

/// The workspace's home: today's figures, those of a range, and the days of it as a chart.
FocusScope {
    id: root

    required property DashboardStore store

    Component.onCompleted: store.ensureLoaded()

    PageHeader {
        id: header
        width: root.width
        title: "Dashboard"
        summary: root.store.dayText
        contentWidth: 1240

        OrvSelect {
            width: 168
            options: root.store.presets
            current: root.store.preset
            onChosen: key => root.store.preset = key
        }

        RefreshButton {
            resource: root.store.overview
            onClicked: root.store.refresh()
        }
    }

    ResourceView {
        y: header.height
        width: root.width
        height: root.height - y
        resource: root.store.overview
        errorTitle: "Couldn’t load the dashboard"
        onRetryRequested: root.store.refresh()

        ScrollPane {
            id: scroll
            anchors.fill: parent
            contentHeight: column.height + 24
            interactive: contentHeight > height

            Column {
                id: column
                x: Theme.pageSide
                y: 10
                // Wider, a day's figures would lie too far apart to be read as one.
                width: Math.min(header.contentWidth, scroll.width - 2 * x)
                spacing: 20

                FigureCards {
                    visible: root.store.today.length > 0
                    width: parent.width
                    figures: root.store.today
                    icons: ["mail-send", "mail-folder-inbox", "mail-message", "system-users"]
                }

                FigureStrip {
                    visible: root.store.metrics.length > 0
                    width: parent.width
                    figures: root.store.metrics
                }

                OrvDivider {
                    width: parent.width
                }

                OrvChart {
                    focus: true
                    width: parent.width
                    height: Math.max(implicitHeight, Math.min(320, scroll.height - y - 80))
                    title: "Daily sending"
                    detail: "Sent, unique opens, replies and clicks"
                    days: root.store.days
                    series: root.store.series
                    emptyText: "Nothing sent in this range."
                    onSeriesToggled: key => root.store.toggleSeries(key)
                }

                OrvLink {
                    text: "Per campaign and per account"
                    onClicked: root.store.openAnalytics()
                }
            }
        }
    }
}
