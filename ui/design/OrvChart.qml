import QtQuick
import Orvella.Design

/// Figures over days, as lines or stacked bars, with a legend whose entries switch series and a read-out of the day under
/// the pointer or the keyboard: Left and Right by a day, with Ctrl by a week, Home and End.
FocusScope {
    id: root

    property string title: ""
    property string detail: ""
    /// ISO dates, one for each value of a series.
    property alias days: plot.days
    /// Maps with key, label, values (NaN is absent), shown and, for what went wrong, failed; what was to be is planned,
    /// and notes stand behind the figures of each day.
    property alias series: plot.series
    /// "line" or "bar".
    property alias kind: plot.kind
    /// Follows every figure: "%".
    property alias unit: plot.unit
    /// What more there is to say of each day, in its read-out.
    property alias dayNotes: plot.dayNotes
    property string emptyText: ""
    /// There is nothing to show. Unless told otherwise, when no series has a figure above zero.
    property bool empty: plot.blank
    /// Kept free at the right end of the title's line, for a control of the page's.
    property real headRoom: 0
    readonly property alias plot: plot
    /// Another chart of the same days: whichever the person is at, both show that day and one read-out tells of both.
    property OrvChart companion: null
    /// The axis ends here and begins near the lowest figure; 0 where it begins at zero.
    property alias upTo: plot.upTo
    /// The number of today among the days, which gets a column of its own with the word over it; -1 for none.
    property int today: -1

    signal seriesToggled(string key)

    implicitWidth: 640
    implicitHeight: 272 + header.height

    Item {
        id: header
        width: root.width
        height: (root.title !== "" || legend.visible ? 30 : 0) + Math.max(legend.y, detailText.y)
        visible: height > 0

        Text {
            id: titleText
            height: 26
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.title
            font: Theme.bodyBold
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            id: detailText

            readonly property real room: root.width - root.headRoom - (legend.visible && legend.fits ? legend.width : 0)
            readonly property bool fits: titleText.width + 10 + implicitWidth + 16 <= room

            // Cut short it would say nothing, so it gets a line of its own where there is no room beside the title.
            x: fits ? titleText.width + 10 : 0
            y: fits || root.detail === "" ? 0 : 22
            height: 26
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.detail
            font: Theme.small
            color: Theme.text3
        }

        ChartLegend {
            id: legend
            visible: plot.seriesCount > 1

            readonly property bool fits: root.title === "" || titleText.width + 16 + width <= root.width - root.headRoom

            // Under the title its text begins where the title's does.
            x: fits ? root.width - root.headRoom - width : -8
            y: visible && !fits ? 26 + detailText.y : 0
            plot: plot
            onToggled: key => root.seriesToggled(key)
        }
    }

    Rectangle {
        // Laid out anew with the plot.
        readonly property rect area: plot.plotArea.width > 0 ? plot.areaOf(root.today) : Qt.rect(0, 0, 0, 0)

        visible: !root.empty && area.width > 0
        x: area.x
        y: plot.y + area.y
        width: area.width
        height: area.height
        color: Theme.selected

        Text {
            x: Math.round((parent.width - width) / 2)
            y: -height
            textFormat: Text.PlainText
            text: "Today"
            font: Theme.micro
            color: Theme.accentText
            Accessible.ignored: true
        }
    }

    Rectangle {
        visible: plot.kind === "bar" && !root.empty && plot.currentDay >= 0
        x: Math.round(plot.x + plot.currentArea.x)
        y: plot.y + plot.currentArea.y
        width: Math.round(plot.currentArea.width)
        height: plot.currentArea.height
        color: Theme.hover
    }

    ChartPlot {
        id: plot
        y: header.height
        width: root.width
        height: root.height - y
        opacity: root.empty ? 0 : 1
        focus: true
        activeFocusOnTab: true
        seriesColors: Theme.seriesColors
        failedColor: Theme.negative
        gridColor: Theme.border
        labelColor: Theme.text3
        labelFont: Theme.microText
        toComeColor: Theme.pressed
        referenceColor: Theme.borderControl
        followed: root.companion ? root.companion.plot.ownDay : -1

        Accessible.role: Accessible.Chart
        Accessible.name: root.title
        Accessible.description: root.empty ? root.emptyText : currentDay >= 0 ? spokenDay : summary
        Accessible.focusable: true

        readonly property string spokenDay: root.companion ? currentText + "; " + root.companion.plot.currentText : currentText

        onActiveFocusChanged: if (!activeFocus) leave()
        Keys.onPressed: event => event.accepted = !root.empty && root.move(event)

        HoverHandler {
            id: hover
            enabled: !root.empty
            onPointChanged: if (hovered) plot.pointAt(point.position.x)
            onHoveredChanged: hovered ? plot.pointAt(point.position.x) : plot.pointAway()
        }

        TapHandler {
            enabled: !root.empty
            onTapped: {
                plot.forceActiveFocus(Qt.MouseFocusReason);
                plot.choose(point.position.x);
            }
        }
    }

    function move(event): bool {
        const by = event.modifiers & Qt.ControlModifier ? 7 : 1;
        switch (event.key) {
        case Qt.Key_Left: plot.moveBy(-by); return true;
        case Qt.Key_Right: plot.moveBy(by); return true;
        case Qt.Key_Home: plot.moveTo(0); return true;
        case Qt.Key_End: plot.moveTo(plot.days.length - 1); return true;
        case Qt.Key_Escape:
            if (plot.currentDay < 0)
                return false;
            plot.pointAway();
            plot.leave();
            return true;
        }
        return false;
    }

    FocusRing {
        // Clear of the figures at the plot's edge.
        anchors { fill: plot; margins: -6 }
        visible: plot.activeFocus && InputMode.keyboard
    }

    Text {
        visible: root.empty
        anchors.centerIn: plot
        width: Math.min(420, root.width - 48)
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.emptyText
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    ChartReadout {
        visible: !root.empty && plot.ownDay >= 0
        anchors.fill: plot
        plot: plot
        other: root.companion ? root.companion.plot : null
    }
}
