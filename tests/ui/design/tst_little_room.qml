import QtQuick
import QtTest
import Orvella.Design

/// What has less room than its words take stays within it.
TestCase {
    id: root

    name: "LittleRoom"
    when: windowShown
    visible: true
    width: 600
    height: 300

    readonly property string longest: "Interested, but wants to be called in the spring of next year"

    OrvSegments {
        id: segments
        options: [{key: "all", label: "All", count: 12000}, {key: "unread", label: "Unread", count: 24000},
                  {key: "archived", label: "Archived"}, {key: "drafts", label: "Drafts", count: 48000}]
        current: "all"
    }

    OrvBadge { id: badge; y: 60; text: root.longest }
    OrvCheckbox { id: tick; y: 100; text: root.longest }

    function endOf(item, of) {
        return item.mapToItem(of, item.width, 0).x;
    }

    function test_segments_data() {
        const whole = segments.implicitWidth;
        return [{tag: "whole", width: whole, counted: true, padding: 10},
                {tag: "wide", width: whole + 100, counted: true, padding: 10},
                {tag: "without air", width: whole - 40, counted: true, padding: 5},
                {tag: "without counts", width: whole - 41, counted: false}, {tag: "narrow", width: 250, counted: false}];
    }

    function test_segments(data) {
        segments.width = data.width;
        compare(segments.counted, data.counted);
        if (data.padding)
            compare(segments.padding, data.padding);
        const last = reader.find(segments, "Drafts, 48,000");
        verify(last, "is told all the same");
        tryVerify(() => endOf(last, segments) <= segments.width - 2);
        verify(last.width >= last.wordsWidth + 10);
    }

    function test_wordsAreCut_data() {
        return [{tag: "badge", item: badge, words: badge.children[1]},
                {tag: "checkbox", item: tick, words: tick.contentItem}];
    }

    function test_wordsAreCut(data) {
        compare(data.words.text, longest);
        data.item.width = 120;
        tryVerify(() => data.words.truncated);
        verify(endOf(data.words, data.item) <= data.item.width);
        verify(badge.implicitWidth < 220);
    }
}
