pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// A few choices of which one holds, with counts. One stop in the tab order; the arrows choose.
FocusScope {
    id: root

    property alias options: choices.options
    property alias current: choices.current
    property string label: ""

    readonly property bool isStrip: true

    signal chosen(string key)

    readonly property alias currentIndex: choices.currentIndex

    function step(by: int) {
        const next = currentIndex + by;
        if (next >= 0 && next < choices.count) chosen(choices.keyAt(next));
    }

    ChoiceList {
        id: choices
    }

    // In little room the air goes first, then the counts.
    readonly property real wordsWidth: total(segment => segment.wordsWidth ?? 0)
    readonly property real countsWidth: total(segment => segment.countWidth ?? 0)
    readonly property bool counted: width >= wordsWidth + countsWidth + 10 * choices.count + 4
    readonly property real padding: {
        const room = width - wordsWidth - (counted ? countsWidth : 0) - 4;
        return Math.max(5, Math.min(10, Math.floor(room / 2 / Math.max(1, choices.count))));
    }

    function total(widthOf): real {
        let sum = 0;
        for (let i = 0; i < row.children.length; ++i)
            sum += widthOf(row.children[i]);
        return sum;
    }

    implicitWidth: Math.ceil(wordsWidth + countsWidth) + 20 * choices.count + 4
    implicitHeight: Theme.controlHeight
    activeFocusOnTab: true

    Accessible.role: Accessible.Grouping
    Accessible.name: label
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)

    Rectangle {
        anchors.fill: parent
        radius: 7
        color: Theme.sunken
        FocusRing { visible: root.activeFocus && InputMode.keyboard; innerRadius: 7 }
    }

    Rectangle {
        // The buttons come after their number is known.
        readonly property Item target: root.currentIndex >= 0 && buttons.count > root.currentIndex ? buttons.itemAt(root.currentIndex) : null
        visible: target !== null
        x: target ? target.x + row.x : 0
        y: 2
        width: target ? target.width : 0
        height: root.height - 4
        radius: 5
        color: Theme.raised
        border.width: 1
        border.color: Theme.border
        Behavior on x { NumberAnimation { duration: Theme.menuDuration; easing.type: Easing.OutCubic } }
        Behavior on width { NumberAnimation { duration: Theme.menuDuration; easing.type: Easing.OutCubic } }
    }

    Row {
        id: row
        x: 2
        y: 2
        height: root.height - 4
        Repeater {
            id: buttons
            model: choices
            Pressable {
                id: segment
                required property choice modelData
                readonly property bool current: modelData.key === root.current
                readonly property real wordsWidth: words.implicitWidth
                readonly property real countWidth: modelData.count >= 0 ? count.implicitWidth + 6 : 0

                height: row.height
                implicitWidth: wordsWidth + (root.counted ? countWidth : 0) + 2 * root.padding
                // The control's focus is on the current one, so that it is heard.
                focus: current
                text: modelData.label
                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData.count >= 0 ? text + ", " + count.text : text
                Accessible.checkable: true
                Accessible.checked: current
                Accessible.focusable: true
                onClicked: root.chosen(modelData.key)

                Text {
                    id: words
                    x: root.padding
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: segment.text
                    font: Theme.bodyStrong
                    color: segment.current || segment.hovered ? Theme.text : Theme.text2
                }
                Text {
                    id: count
                    visible: segment.modelData.count >= 0 && root.counted
                    x: words.x + words.width + 6
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: segment.modelData.count.toLocaleString(Qt.locale(), "f", 0)
                    font: Theme.body
                    color: Theme.text3
                }
            }
        }
    }
}
