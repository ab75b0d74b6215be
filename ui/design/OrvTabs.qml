pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// Tabs over one page; what is ticked has something unsaved. Left and Right move between them.
FocusScope {
    id: root

    property alias options: choices.options
    property alias current: choices.current
    /// What the tabs are of: "Campaign sections".
    property string label: ""

    readonly property bool isStrip: true

    signal chosen(string key)

    function step(by: int) {
        if (choices.count > 0) chosen(choices.around(by));
    }

    ChoiceList {
        id: choices
    }

    implicitWidth: row.implicitWidth
    implicitHeight: 36
    activeFocusOnTab: true

    Accessible.role: Accessible.PageTabList
    Accessible.name: label
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)

    Row {
        id: row
        spacing: 20
        height: root.height
        Repeater {
            model: choices
            Pressable {
                id: tab
                required property choice modelData
                readonly property bool current: modelData.key === root.current

                height: row.height
                implicitWidth: words.implicitWidth
                text: modelData.label
                // The strip's focus is on the current one, so that it is heard.
                focus: current
                Accessible.role: Accessible.PageTab
                Accessible.name: (modelData.count >= 0 ? text + ", " + pill.text : text) + (modelData.ticked ? ", unsaved" : "")
                Accessible.focusable: true
                Accessible.selected: current
                onClicked: root.chosen(modelData.key)

                Row {
                    id: words
                    height: parent.height
                    spacing: 6
                    Text {
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        textFormat: Text.PlainText
                        text: tab.text
                        font: tab.current ? Theme.bodyBold : Theme.bodyStrong
                        color: tab.current || tab.hovered ? Theme.text : Theme.text2
                    }
                    OrvCount {
                        id: pill
                        visible: tab.modelData.count >= 0
                        anchors.verticalCenter: parent.verticalCenter
                        value: visible ? tab.modelData.count : 0
                    }
                    UnsavedMark {
                        visible: tab.modelData.ticked
                        anchors.verticalCenter: parent.verticalCenter
                    }
                }
                FocusRing {
                    visible: tab.current && root.activeFocus && InputMode.keyboard
                    inset: true
                    anchors { leftMargin: -6; rightMargin: -6 }
                }
                Rectangle {
                    visible: tab.current
                    y: parent.height - 2
                    width: parent.width
                    height: 2
                    color: Theme.accentText
                }
            }
        }
    }
}
