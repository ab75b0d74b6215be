pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// The figures of an OrvChart as a table: the same properties, a row for each day, a column for each shown series, of
/// which there may be six.
OrvTable {
    id: root

    property alias days: figures.days
    property alias series: figures.series
    property alias unit: figures.unit
    property alias dayNotes: figures.dayNotes
    property alias noteTitle: figures.noteTitle

    title: "Figures by day"
    rowHeight: 32
    model: figures
    columns: [
        OrvColumn { id: dayColumn; key: "day"; title: "Day"; fill: true; minimumWidth: 96 },
        ChartColumn { table: root; figures: figures; place: 0 },
        ChartColumn { table: root; figures: figures; place: 1 },
        ChartColumn { table: root; figures: figures; place: 2 },
        ChartColumn { table: root; figures: figures; place: 3 },
        ChartColumn { table: root; figures: figures; place: 4 },
        ChartColumn { table: root; figures: figures; place: 5 }
    ]

    ChartRows { id: figures }

    delegate: OrvTableRow {
        id: row

        required property string day
        required property list<string> texts

        label: day

        OrvTextCell { column: dayColumn; text: row.day }

        Repeater {
            model: row.texts.length

            OrvTextCell {
                required property int index

                column: root.columns[index + 1]
                text: row.texts[index] ?? ""
            }
        }
    }
}
