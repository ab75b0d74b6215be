pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// OrvChart and its table: lines with a read-out, bars, gaps, many days, one day, none.
Rectangle {
    id: root

    color: Theme.surface

    readonly property real columnWidth: (width - 72) / 2
    readonly property real rowHeight: (height - 64) / 3

    function daysFrom(count: int): list<string> {
        const days = [];
        for (let i = 0; i < count; ++i)
            days.push(new Date(Date.UTC(2026, 10, 20 - count + 1 + i)).toISOString().slice(0, 10));
        return days;
    }

    /// Busy weeks and quiet weekends, the same in every run.
    function figures(count: int, height: real): list<real> {
        const values = [];
        for (let i = 0; i < count; ++i) {
            const weekday = (i + 25 * 400 - count) % 7;
            const wave = (i * 7919 % 101) / 101;
            values.push(Math.round(height * (weekday < 2 ? 0.1 : 0.78 + 0.22 * wave)));
        }
        return values;
    }

    function sending(count: int): var {
        return [
            {key: "sent", label: "Sent", values: figures(count, 1533), shown: true},
            {key: "opens", label: "Unique opens", values: figures(count, 586), shown: true},
            {key: "replies", label: "Unique replies", values: figures(count, 132), shown: true},
            {key: "clicks", label: "Unique clicks", values: figures(count, 311), shown: count > 28}
        ];
    }

    function withGaps(values: var, holes: var): list<real> {
        return values.map((value, i) => holes.includes(i) ? NaN : value);
    }

    OrvChart {
        id: line
        x: 24
        y: 16
        width: root.columnWidth
        height: root.rowHeight
        title: "Daily sending"
        detail: "Sent, unique opens, replies and clicks"
        days: root.daysFrom(28)
        series: root.sending(28)
        onSeriesToggled: key => series = series.map(one => one.key === key ? Object.assign({}, one, {shown: !one.shown}) : one)
        Component.onCompleted: plot.moveTo(19)
    }

    OrvChart {
        x: 48 + root.columnWidth
        y: 16
        width: root.columnWidth
        height: root.rowHeight
        title: "Activity"
        kind: "bar"
        days: root.daysFrom(30)
        series: [
            {key: "warmup", label: "Warm-up", values: root.figures(30, 24)},
            {key: "live", label: "Live", values: root.figures(30, 31)},
            {key: "planned", label: "Planned", values: root.daysFrom(30).map((day, i) => 16 + 2 * Math.floor(i / 10)), planned: true},
            {key: "failed", label: "Failed", values: root.daysFrom(30).map((day, i) => i % 4 === 1 ? 6 : 0), failed: true}
        ]
        Component.onCompleted: plot.moveTo(21)
    }

    OrvChart {
        x: 24
        y: 32 + root.rowHeight
        width: root.columnWidth
        height: root.rowHeight
        title: "Daily sending"
        detail: "400 days"
        days: root.daysFrom(400)
        series: root.sending(400)
    }

    OrvChartTable {
        x: 48 + root.columnWidth
        y: 32 + root.rowHeight
        width: root.columnWidth
        height: root.rowHeight
        days: line.days
        series: line.series
    }

    OrvChart {
        x: 24
        y: 48 + 2 * root.rowHeight
        width: root.columnWidth
        height: root.rowHeight
        title: "Inbox rate, 14 days"
        unit: "%"
        days: root.daysFrom(14)
        series: [{
            key: "rate",
            label: "Inbox rate",
            values: root.withGaps([88, 91.5, 90, 92, 0, 94, 93.5, 0, 0, 96, 97, 95.5, 0, 98], [4, 7, 8, 12])
        }]
    }

    OrvChart {
        x: 48 + root.columnWidth
        y: 48 + 2 * root.rowHeight
        width: (root.columnWidth - 24) / 2
        height: root.rowHeight
        title: "One day"
        days: root.daysFrom(1)
        series: root.sending(1).slice(0, 1)
    }

    OrvChart {
        x: 72 + root.columnWidth + (root.columnWidth - 24) / 2
        y: 48 + 2 * root.rowHeight
        width: (root.columnWidth - 24) / 2
        height: root.rowHeight
        title: "Nothing"
        days: root.daysFrom(7)
        series: [{key: "sent", label: "Sent", values: [0, 0, 0, NaN, 0, 0, 0]}]
        emptyText: "Nothing sent in this range."
    }
}
