import QtQuick
import Orvella.Design

/// How a chart draws one of its series.
ChartStroke {
    id: root

    required property ChartPlot plot
    required property int index

    readonly property var entry: plot.legend[index]

    width: bar ? 10 : 18
    height: bar ? 10 : 2
    bar: plot.kind === "bar" && !(entry?.planned ?? false)
    series: entry?.look ?? index
    color: entry?.color ?? "transparent"
    failed: entry?.failed ?? false
}
