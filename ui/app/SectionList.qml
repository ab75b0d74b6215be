pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// Leads to a form's sections; what is ticked has something unsaved. One stop in the tab order, the arrows lead on.
FocusScope {
    id: root

    property alias sections: choices.options
    /// The key of the one that is in view.
    property alias current: choices.current

    signal chosen(string key)

    function step(by: int) {
        const key = choices.next(by);
        if (key !== "")
            chosen(key);
    }

    ChoiceList {
        id: choices
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.PageTabList
    Accessible.name: "Sections"
    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)

    Column {
        x: 14
        y: 16
        width: parent.width - 28

        Repeater {
            model: choices

            Pressable {
                id: entry

                required property choice modelData
                readonly property bool current: modelData.key === root.current

                width: parent.width
                height: 30
                text: modelData.label
                // The list's focus is on the current one, so that it is heard.
                focus: current
                Accessible.role: Accessible.PageTab
                Accessible.name: text + (modelData.ticked ? ", unsaved" : "")
                Accessible.focusable: true
                Accessible.selected: current
                onClicked: root.chosen(modelData.key)

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radiusControl
                    color: entry.current || entry.down ? Theme.pressed : entry.hovered ? Theme.hover : "transparent"

                    FocusRing { visible: entry.current && root.activeFocus && InputMode.keyboard; inset: true }
                }

                Text {
                    x: 10
                    width: parent.width - x - (mark.visible ? 24 : 4)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    text: entry.text
                    font: entry.current ? Theme.bodyBold : Theme.bodyStrong
                    color: entry.current ? Theme.text : Theme.text2
                    Accessible.ignored: true
                }

                UnsavedMark {
                    id: mark
                    visible: entry.modelData.ticked
                    x: parent.width - 16
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
}
