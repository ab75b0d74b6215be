import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Figures
import Orvella.Accounts

/// What an account sent and got: its figures, the days of a range, and where it stands today.
FocusScope {
    id: root

    required property AccountDetail store
    readonly property AccountActivity activity: store.activity
    readonly property bool narrow: page.width - 2 * Theme.pageSide < 760

    Component.onCompleted: activity.ensureLoaded()

    ScrollPage {
        id: page
        anchors.fill: parent
        focus: true
        maximumWidth: 1240
        belowHeight: 0

        FigureStrip {
            visible: figures.length > 0
            width: parent.width
            figures: root.activity.figures
        }

        OrvDivider {
            width: parent.width
        }

        FocusScope {
            width: parent.width
            height: page.width >= 1240 ? 350 : 302

            ResourceView {
                y: hasContent ? 0 : 38
                width: parent.width
                height: parent.height - y
                focus: true
                resource: root.activity.history
                skeletonRowHeight: 44
                errorTitle: "Couldn’t load the activity"
                onRetryRequested: root.activity.retry()

                DailyChart {
                    id: chart
                    anchors.fill: parent
                    focus: true
                    title: "Activity"
                    caption: ""
                    kind: "bar"
                    days: root.activity.days
                    series: root.activity.series
                    dayNotes: root.activity.dayNotes
                    noteTitle: "Placement"
                    emptyText: root.activity.emptyText
                    view: root.activity.view
                    onViewChosen: view => root.activity.view = view
                    onSeriesToggled: key => root.activity.toggle(key)
                }
            }

            OrvSegments {
                x: 64
                y: -2
                label: "Range"
                options: root.activity.ranges
                current: root.activity.range
                onChosen: key => root.activity.range = key
            }
        }

        Flow {
            width: parent.width
            spacing: 32

            FactList {
                width: root.narrow ? parent.width : (parent.width - 32) / 2
                title: "Warm-up and ramp-up"
                facts: root.store.warmupFacts
                linkText: "Manage in Rampup"
                onLinkChosen: root.store.openRampup()
            }

            FactList {
                width: root.narrow ? parent.width : (parent.width - 32) / 2
                title: "Connection"
                facts: root.store.connectionFacts
            }
        }
    }
}
