import QtQuick
import Orvella.Design

/// The days of a range, as a chart or as a table of the same figures.
FocusScope {
    id: root

    /// As OrvChart takes them. To the linter of Qt 6.4 a QStringList is no list of strings.
    property var days: []
    property var series: []
    property string title: "Daily sending"
    property string caption: "Sent, unique opens, replies and clicks"
    property string emptyText: "Nothing sent in this range."
    /// "line" or "bar".
    property string kind: "line"
    /// What more there is to say of each day; in the table under its title.
    property var dayNotes: []
    property string noteTitle: ""
    /// "chart" or "table".
    property string view: "chart"

    signal viewChosen(string view)
    signal seriesToggled(string key)

    readonly property bool asTable: view === "table" && days.length > 0

    implicitHeight: 302

    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: root.asTable ? table : chart
    }

    OrvSegments {
        id: views
        visible: root.days.length > 0
        x: root.width - width
        y: -2
        label: "Figures by day"
        options: [{ key: "chart", label: "Chart", count: -1 }, { key: "table", label: "Table", count: -1 }]
        current: root.view
        onChosen: key => root.viewChosen(key)
    }

    Component {
        id: chart

        OrvChart {
            focus: true
            title: root.title
            detail: root.caption
            kind: root.kind
            dayNotes: root.dayNotes
            headRoom: views.visible ? views.width + 8 : 0
            days: root.days
            series: root.series
            emptyText: root.emptyText
            onSeriesToggled: key => root.seriesToggled(key)
        }
    }

    Component {
        id: table

        FocusScope {
            Text {
                id: heading
                height: 26
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.title
                font: Theme.bodyBold
                color: Theme.text
            }

            Text {
                x: heading.width + 10
                width: Math.min(implicitWidth, views.x - 16 - x)
                height: 26
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.caption
                font: Theme.small
                color: Theme.text3
            }

            OrvChartTable {
                y: 38
                width: parent.width
                height: parent.height - y
                focus: true
                sidePadding: 12
                days: root.days
                series: root.series
                dayNotes: root.dayNotes
                noteTitle: root.noteTitle
            }

            OrvDivider {
                y: parent.height - height
                width: parent.width
            }
        }
    }
}
