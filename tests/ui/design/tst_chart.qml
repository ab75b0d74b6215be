import QtQuick
import QtTest
import Orvella.Design

TestCase {
    id: root

    name: "Chart"
    when: windowShown
    width: 640
    height: 400
    visible: true

    property var log: []

    OrvChart {
        id: chart
        width: 600
        height: 240
        title: "Daily sending"
        emptyText: "Nothing sent in this range."
        onSeriesToggled: key => root.log.push(key)
    }

    OrvChartTable {
        id: table
        y: 250
        width: 600
        height: 150
        days: chart.days
        series: chart.series
    }

    function daysFrom(first: string, count: int): list<string> {
        const days = [];
        for (let i = 0; i < count; ++i) {
            const day = new Date(first);
            day.setUTCDate(day.getUTCDate() + i);
            days.push(day.toISOString().slice(0, 10));
        }
        return days;
    }

    function lines(sent: var, opens: var): var {
        return [{key: "sent", label: "Sent", values: sent, shown: true}, {key: "opens", label: "Unique opens", values: opens, shown: true}];
    }

    function init() {
        chart.width = 600;
        chart.detail = "";
        chart.kind = "line";
        chart.days = daysFrom("2026-11-09", 7);
        chart.series = lines([1272, 900, NaN, 1400, 0, 12, 1533], [498, 300, 200, NaN, NaN, 3, 600]);
        chart.dayNotes = [];
        table.dayNotes = [];
        // Away from the chart, and known to be.
        mouseMove(root, 630, 390);
        chart.plot.forceActiveFocus();
        chart.plot.leave();
        log = [];
    }

    function xOf(day: int): real {
        chart.plot.moveTo(day);
        const x = chart.plot.currentArea.x + chart.plot.currentArea.width / 2;
        chart.plot.leave();
        return x;
    }

    function hover(day: int) {
        mouseMove(chart, xOf(day), 100);
    }

    function test_keysMove_data() {
        return [
            {tag: "right begins at the first day", keys: [Qt.Key_Right], day: 0},
            {tag: "left begins at the last", keys: [Qt.Key_Left], day: 6},
            {tag: "right", keys: [Qt.Key_Home, Qt.Key_Right, Qt.Key_Right], day: 2},
            {tag: "stops at the end", keys: [Qt.Key_End, Qt.Key_Right], day: 6},
            {tag: "stops at the start", keys: [Qt.Key_Home, Qt.Key_Left], day: 0},
            {tag: "a week", keys: [Qt.Key_Home, Qt.Key_Right], modifiers: Qt.ControlModifier, day: 6},
            {tag: "escape", keys: [Qt.Key_End, Qt.Key_Escape], day: -1},
        ];
    }

    function test_keysMove(data) {
        for (const key of data.keys)
            keyClick(key, key === Qt.Key_Home ? Qt.NoModifier : data.modifiers ?? Qt.NoModifier);
        compare(chart.plot.currentDay, data.day);
    }

    function test_readOut() {
        hover(0);
        compare(chart.plot.currentTitle, "Mon 9 Nov");
        compare(chart.plot.readings.map(reading => reading.text), ["1,272", "498"]);
        hover(2);
        compare(chart.plot.readings.map(reading => reading.text), ["–", "200"]);
        compare(chart.plot.readings.map(reading => reading.y !== undefined), [false, true], "no point on a gap");
        chart.kind = "bar";
        compare(chart.plot.readings.map(reading => reading.y !== undefined), [false, false]);
    }

    function test_pointerAndKeys() {
        hover(4);
        compare(chart.plot.currentDay, 4);
        keyClick(Qt.Key_Right);
        waitForRendering(chart);
        compare(chart.plot.currentDay, 5, "keys go on from the pointer's day, also when it lies still");
        mouseMove(root, 630, 390);
        compare(chart.plot.currentDay, 5, "the pointer takes only its own day along");
        hover(1);
        mouseMove(root, 630, 390);
        compare(chart.plot.currentDay, -1);
        mouseClick(chart, xOf(3), 100);
        mouseMove(root, 630, 390);
        compare(chart.plot.currentDay, 3, "a click stays");
        keyClick(Qt.Key_Tab);
        compare(chart.plot.currentDay, -1, "and goes with the focus");
    }

    function test_dataReplacedWhileHovering() {
        hover(5);
        const x = chart.plot.currentArea.x;
        chart.days = daysFrom("2026-11-14", 2);
        chart.series = lines([5, 6], [1, 2]).slice(0, 1);
        compare(chart.plot.currentDay, 1, "the day that is now under the pointer");
        compare(chart.plot.currentText, "Sun 15 Nov, Sent 6");
        verify(Math.abs(chart.plot.currentArea.x - x) > 10);
        chart.days = [];
        compare([chart.plot.currentDay, chart.plot.currentTitle], [-1, ""]);
    }

    function test_keyboardKeepsItsDay() {
        keyClick(Qt.Key_End);
        chart.days = daysFrom("2026-11-12", 7);
        compare(chart.plot.currentTitle, "Sun 15 Nov");
        compare(chart.plot.currentDay, 3);
        chart.days = daysFrom("2026-12-12", 7);
        compare(chart.plot.currentDay, -1);
    }

    function test_legendSwitches() {
        const legend = findChildren(chart, item => item.Accessible.role === Accessible.CheckBox);
        compare(legend.map(item => item.Accessible.name), ["Sent", "Unique opens"]);
        mouseClick(legend[1]);
        legend[0].forceActiveFocus();
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Return);
        legend[0].Accessible.pressAction();
        compare(log, ["opens", "sent", "sent", "sent"]);
        chart.series = chart.series.map(one => Object.assign({}, one, {shown: one.key === "opens"}));
        verify(legend[0].activeFocus, "the switch keeps the focus when its series comes back");
        compare(legend.map(item => item.Accessible.checked), [false, true]);
        hover(0);
        compare(chart.plot.currentText, "Mon 9 Nov, Unique opens 498");
    }

    function findChildren(item, wanted): var {
        let found = wanted(item) ? [item] : [];
        for (let i = 0; i < item.children.length; ++i)
            found = found.concat(findChildren(item.children[i], wanted));
        return found;
    }

    function test_spoken() {
        const plot = chart.plot;
        compare(plot.Accessible.role, Accessible.Chart);
        compare(plot.Accessible.name, "Daily sending");
        compare(plot.Accessible.description, "Mon 9 Nov to Sun 15 Nov. Sent: 0 to 1,533, highest on 15 Nov. "
                + "Unique opens: 3 to 600, highest on 15 Nov.");
        keyClick(Qt.Key_Home);
        compare(plot.Accessible.description, "Mon 9 Nov, Sent 1,272, Unique opens 498");
        chart.days = ["2025-12-31", "2026-01-01"];
        keyClick(Qt.Key_End);
        compare(plot.currentTitle, "Thu 1 Jan 2026", "the year where there are two");
    }

    function test_empty_data() {
        return [
            {tag: "no days", days: [], series: lines([], []), empty: true},
            {tag: "no series", days: daysFrom("2026-11-09", 2), series: [], empty: true},
            {tag: "zeros and gaps", days: daysFrom("2026-11-09", 2), series: lines([0, NaN], [0, 0]), empty: true},
            {tag: "no values", days: daysFrom("2026-11-09", 2), series: lines([], [null, undefined]), empty: true},
            {tag: "one email", days: daysFrom("2026-11-09", 2), series: lines([0, 1], [0, 0]), empty: false},
            {tag: "switched off", days: daysFrom("2026-11-09", 1), series: [{key: "a", label: "A", values: [3], shown: false}], empty: false},
        ];
    }

    function test_empty(data) {
        chart.days = data.days;
        chart.series = data.series;
        compare(chart.empty, data.empty);
        compare(chart.plot.Accessible.description === "Nothing sent in this range.", data.empty);
        keyClick(Qt.Key_Right);
        compare(chart.plot.currentDay, data.empty ? -1 : 0);
    }

    function test_captionStays_data() {
        return [{tag: "beside the title", width: 600, y: 0}, {tag: "under it", width: 420, y: 22}, {tag: "above the legend", width: 240, y: 22}];
    }

    function test_captionStays(data) {
        chart.detail = "Sent, opens and replies";
        chart.width = data.width;
        const caption = findChildren(chart, item => item.text === chart.detail)[0];
        verify(caption.visible);
        compare(caption.y, data.y);
        const place = item => item.mapToItem(chart, 0, 0, item.width, item.height);
        for (const entry of findChildren(chart, item => item.Accessible.role === Accessible.CheckBox)) {
            const a = place(caption), b = place(entry);
            verify(a.x + a.width <= b.x || b.x + b.width <= a.x || a.y + a.height <= b.y || b.y + b.height <= a.y, "clear of the legend");
        }
        verify(chart.plot.y >= caption.y + caption.height);
    }

    function test_resize() {
        keyClick(Qt.Key_End);
        const right = () => chart.width - (chart.plot.plotArea.x + chart.plot.plotArea.width);
        compare(right(), 8);
        compare(chart.plot.currentArea.x, 592);
        chart.width = 320;
        compare(right(), 8);
        compare(chart.plot.currentArea.x, 312);
        chart.width = 10;
        compare(chart.plot.plotArea.width, 0);
        compare(chart.plot.currentDay, 6);
    }

    /// Whether the series' colour is in the column of the day, beyond the cursor and its points.
    function isDrawn(day: int, color: color): bool {
        const image = grabImage(chart);
        const x = Math.round(xOf(day));
        for (let y = Math.round(chart.plot.y); y < chart.height; ++y) {
            if (Qt.colorEqual(image.pixel(x, y), color))
                return true;
        }
        return false;
    }

    function test_drawn_data() {
        return [
            {tag: "line", kind: "line", sent: [4, 4, 4], opens: [2, 2, 2], day: 1, drawn: [true, false]},
            {tag: "gap", kind: "line", sent: [4, NaN, 4], opens: [2, 2, 2], day: 1, drawn: [false, false]},
            {tag: "lone day", kind: "line", sent: [NaN, 4, NaN], opens: [], day: 1, drawn: [true, false]},
            {tag: "bars", kind: "bar", sent: [4, 4, 4], opens: [2, 2, 0], day: 1, drawn: [true, true]},
            {tag: "no bar for zero", kind: "bar", sent: [4, 4, 4], opens: [2, 2, 0], day: 2, drawn: [true, false]},
        ];
    }

    function test_drawn(data) {
        chart.kind = data.kind;
        chart.days = daysFrom("2026-11-09", 3);
        const series = lines(data.sent, data.opens);
        // A dashed line may have a gap in the very column.
        series[1].shown = data.kind === "bar";
        chart.series = series;
        compare([isDrawn(data.day, Theme.series1), isDrawn(data.day, Theme.series2)], data.drawn);
        chart.series = lines([], [1, 1, 1]);
        compare(isDrawn(data.day, Theme.series1), false, "drawn anew");
    }

    function test_plannedIsNoPart() {
        chart.kind = "bar";
        chart.series = [
            {key: "sent", label: "Sent", values: [4, 4, 4, 4, 4, 4, 4], shown: true, notes: ["1 reply", "", "", "", "", "", ""]},
            {key: "plan", label: "Planned", values: [5, 5, 5, 5, 5, 5, 5], shown: true, planned: true},
            {key: "live", label: "Live", values: [1, 1, 1, 1, 1, 1, 1], shown: true}];
        chart.dayNotes = ["3 inbox (3 of 4 checked)", "", "", "", "", "", ""];
        table.dayNotes = chart.dayNotes;
        chart.plot.moveTo(0);
        compare(chart.plot.readings.map(reading => reading.text), ["4 (1 reply)", "5", "1"]);
        compare(chart.plot.currentNote, "3 inbox (3 of 4 checked)");
        compare(chart.plot.currentText, "Mon 9 Nov, Sent 4 (1 reply), Planned 5, Live 1, 3 inbox (3 of 4 checked)");
        compare(table.columns[4].visible, true);
        // Four of the scale's six: with what was planned among the parts there would have to be room for ten.
        const picture = grabImage(chart.plot);
        const area = chart.plot.currentArea;
        let filled = 0;
        for (let y = area.y; y < area.y + area.height; ++y)
            filled += Qt.colorEqual(picture.pixel(area.x + area.width / 2, y), Theme.series1);
        verify(filled > area.height * 0.6, filled + " of " + area.height);
    }

    function test_tableSaysTheSame() {
        const texts = key => {
            const row = table.itemOf(key);
            return findChildren(row, item => item.visible && item.Accessible.role === Accessible.Cell).map(cell => cell.Accessible.name);
        };
        compare(texts("2026-11-09"), ["Day, Mon 9 Nov", "Sent, 1,272", "Unique opens, 498"]);
        compare(texts("2026-11-11"), ["Day, Wed 11 Nov", "Sent, –", "Unique opens, 200"]);
        chart.series = chart.series.map(one => Object.assign({}, one, {shown: one.key === "opens"}));
        compare(texts("2026-11-11"), ["Day, Wed 11 Nov", "Unique opens, 200"]);
        chart.series = lines([1, 2, 3, 4, 5, 6, 7], [0, 0, 0, 0, 0, 0, 0]);
        compare(texts("2026-11-11"), ["Day, Wed 11 Nov", "Sent, 3", "Unique opens, 0"]);
    }
}
