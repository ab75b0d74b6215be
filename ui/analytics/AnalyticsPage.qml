import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Analytics
import Orvella.Figures

/// The workspace's results over a range of days: totals, the days, and each campaign's and account's share.
FocusScope {
    id: root

    required property AnalyticsStore store
    readonly property bool campaigns: store.tab === "campaigns"
    readonly property int rowCount: campaigns ? store.campaignRows.count : store.accountRows.count

    Component.onCompleted: store.ensureLoaded()

    PageHeader {
        id: header
        width: root.width
        title: "Analytics"
        summary: root.store.rangeText

        OrvButton {
            text: "Export CSV"
            iconName: "document-export"
            busy: root.store.exporting
            onClicked: root.store.act("export")
        }
    }

    OrvFilterLine {
        id: filters
        y: header.height
        width: root.width

        leading: OrvSelect {
            width: 168
            options: root.store.ranges
            current: root.store.range
            onChosen: key => root.store.chooseRange(key)
        }

        AnalyticsFilters {
            store: root.store
            folded: root.width < 1000
        }

        RefreshButton {
            resource: root.store.summary
            onClicked: root.store.refresh()
        }
    }

    ResourceView {
        y: filters.y + filters.height
        width: root.width
        height: root.height - y - foot.height
        resource: root.store.summary
        skeletonRowHeight: 44
        errorTitle: "Couldn’t load analytics"
        onRetryRequested: root.store.refresh()

        ScrollPage {
            id: page
            anchors.fill: parent
            focus: true
            table: root.rowCount > 0 ? tables.table : null

            OrvNotice {
                visible: text !== ""
                width: parent.width
                text: root.store.sampleNote
            }

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

            pinned: OrvTabs {
                id: tabs
                width: parent?.width ?? 0
                label: "Figures by"
                options: [
                    { key: "campaigns", label: "Campaigns", count: root.store.campaignRows.count },
                    { key: "accounts", label: "Accounts", count: root.store.accountRows.count }
                ]
                current: root.store.tab
                onChosen: key => root.store.tab = key
            }

            below: [
                Loader {
                    id: tables

                    readonly property OrvTable table: item as OrvTable

                    anchors.fill: parent
                    sourceComponent: root.campaigns ? campaignFigures : accountFigures
                },
                OrvEmpty {
                    anchors { fill: parent; topMargin: 32 }
                    visible: root.rowCount === 0
                    iconName: root.campaigns ? "mail-send" : "mail-message"
                    title: root.campaigns ? "No campaigns in this range" : "No accounts in this range"
                    text: root.campaigns ? "Figures appear once a campaign has sent in these dates."
                                         : "Figures by inbox appear once one has sent in these dates."
                    actionText: root.store.filtered ? "Show all" : ""
                    onActionRequested: root.store.clearFilters()
                }
            ]
        }
    }

    PageFoot {
        id: foot
        y: root.height - height
        width: root.width
        countText: root.store.summary.hasContent ? root.store.countText : ""
        resource: root.store.summary
    }

    Component {
        id: campaignFigures

        CampaignFigures {
            store: root.store
        }
    }

    Component {
        id: accountFigures

        AccountFigures {
            store: root.store
        }
    }

    RangeDialog {
        form: root.store.rangeForm
    }

    Shortcut {
        sequences: ["Ctrl+Tab", "Ctrl+Shift+Tab"]
        onActivated: tabs.step(1)
    }
}
