pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// What a field's text may stand for, listed under the field. The caret stays in the field, which passes its keys on.
T.Popup {
    id: root

    property alias options: choices.options
    property bool wanted: false
    property int current: -1

    signal chosen(string key)

    function step(by: int): bool {
        if (!visible) return false;
        const count = choices.count;
        current = current < 0 && by < 0 ? count - 1 : (current + by + count) % count;
        return true;
    }

    /// Chooses the current one; false when there is none.
    function take(): bool {
        if (!visible || current < 0) return false;
        chosen(choices.keyAt(current));
        return true;
    }

    readonly property ChoiceList choiceList: ChoiceList {
        id: choices
        onOptionsChanged: root.current = -1
    }

    // The focus stays in the field, so the list cannot be heard by itself.
    onCurrentChanged: {
        if (visible && current >= 0)
            Announcer.say(options[current].label + ", " + (current + 1) + " of " + choices.count, "suggestion");
    }

    y: parent ? parent.height + 4 : 0
    width: parent ? parent.width : 0
    readonly property int rows: 10
    implicitHeight: Math.min(rows, choices.count) * 30 + 8
    padding: 4
    focus: false
    closePolicy: T.Popup.NoAutoClose
    visible: wanted && choices.count > 0
    background: OrvFloat { radius: Theme.radiusFloat }

    contentItem: ListView {
        Accessible.role: Accessible.List
        Accessible.name: "Suggestions"
        model: root.options
        currentIndex: root.current
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: OrvScrollBar {}

        delegate: Rectangle {
            id: entry

            required property choice modelData
            required property int index

            width: ListView.view.width
            height: 30
            radius: Theme.radiusControl
            color: index === root.current || pointer.hovered ? Theme.hover : "transparent"
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData.detail === "" ? modelData.label : modelData.label + ", " + modelData.detail
            Accessible.selected: index === root.current
            Accessible.onPressAction: root.chosen(modelData.key)

            Text {
                x: 10
                width: parent.width - 20 - (more.visible ? more.implicitWidth + 12 : 0)
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: entry.modelData.label
                font: Theme.body
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                id: more
                visible: text !== ""
                anchors { right: parent.right; rightMargin: 10 }
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: entry.modelData.detail
                font: Theme.small
                color: Theme.text3
                Accessible.ignored: true
            }

            HoverHandler { id: pointer }
            TapHandler { onTapped: root.chosen(entry.modelData.key) }
        }
    }
}
