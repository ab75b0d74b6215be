import QtQuick
import Orvella.Design

/// The column of a chart's series in its table. There is one for every place: cells stand in columns, so that none may
/// go with its series.
OrvColumn {
    required property TableCore table
    required property ChartRows figures
    required property int place

    readonly property var entry: figures.legend[place]

    key: entry?.key ?? ""
    title: entry?.label ?? ""
    visible: entry?.shown ?? false
    alignment: Text.AlignRight
    preferredWidth: 112
    onVisibleChanged: table.placed.place()
}
