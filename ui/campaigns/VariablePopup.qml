pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Campaigns

/// The variables to choose from while one is being typed. The keys stay with the field, which hands them on.
T.Popup {
    id: root

    property list<emailVariable> variables
    /// What was typed of a name.
    property string typed: ""

    readonly property list<emailVariable> matches: [...variables].filter(variable => variable.name.toLowerCase().includes(typed.toLowerCase()))

    signal chosen(string name)

    function takeKey(event: var) {
        const down = event.key === Qt.Key_Down, up = event.key === Qt.Key_Up;
        const takes = event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Tab;
        if (!down && !up && !takes)
            return;
        event.accepted = true;
        if (takes)
            chosen(matches[list.currentIndex].name);
        else
            list.currentIndex = (list.currentIndex + (down ? 1 : -1) + list.count) % list.count;
    }

    width: 288
    height: Math.min(296, list.contentHeight + topPadding + bottomPadding)
    padding: 4
    margins: 8
    focus: false
    closePolicy: T.Popup.NoAutoClose
    onMatchesChanged: list.currentIndex = 0
    onOpened: tellCurrent()

    // The caret stays in the text.
    function tellCurrent() {
        const variable = matches[list.currentIndex];
        if (opened && variable)
            Announcer.say(variable.name + ", " + (list.currentIndex + 1) + " of " + matches.length, "suggestion");
    }

    background: OrvFloat {}

    contentItem: ListView {
        id: list

        onCurrentIndexChanged: root.tellCurrent()
        clip: true
        model: root.matches
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: "Variables"

        delegate: Item {
            id: entry

            required property emailVariable modelData
            required property int index
            // Not a section of the list, which finds no property in a plain value.
            readonly property bool begins: modelData.group !== "" && root.matches[index - 1]?.group !== modelData.group

            width: list.width
            height: line.y + line.height

            Accessible.role: Accessible.ListItem
            Accessible.name: modelData.name + (modelData.text !== "" ? ", " + modelData.text : "")
            Accessible.description: modelData.group
            Accessible.selected: ListView.isCurrentItem
            Accessible.onPressAction: root.chosen(modelData.name)

            Text {
                id: heading
                visible: entry.begins
                height: 26
                leftPadding: 10
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: entry.modelData.group
                font: Theme.microBold
                color: Theme.text3
                Accessible.ignored: true
            }

            Rectangle {
                id: line
                y: heading.visible ? heading.height : 0
                width: parent.width
                height: 30
                radius: Theme.radiusControl
                color: entry.ListView.isCurrentItem ? Theme.selected : "transparent"

                Text {
                    id: nameText
                    x: 10
                    width: Math.min(implicitWidth, 150)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    text: entry.modelData.name
                    font: Theme.bodyStrong
                    color: Theme.text
                    Accessible.ignored: true
                }

                Text {
                    anchors { left: nameText.right; leftMargin: 10; right: parent.right; rightMargin: 8 }
                    height: parent.height
                    horizontalAlignment: Text.AlignRight
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    text: entry.modelData.text
                    font: Theme.small
                    color: Theme.text3
                    Accessible.ignored: true
                }

                HoverHandler {
                    onHoveredChanged: if (hovered) list.currentIndex = entry.index
                }

                TapHandler {
                    onTapped: root.chosen(entry.modelData.name)
                }
            }
        }
    }
}
