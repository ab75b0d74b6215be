pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Settings

/// The tabs by their sections. One stop in the tab order; the arrows open the next one.
FocusScope {
    id: root

    required property SettingsStore store

    readonly property var tabs: store.tabs

    function step(by: int) {
        const at = tabs.findIndex(entry => entry.tab === store.tab);
        const next = tabs[at + by];
        // The agent's settings stand on another page: nobody steps there by accident.
        const to = next !== undefined && next.tab === "ai" ? tabs[at + 2 * by] : next;
        if (to !== undefined)
            store.tab = to.tab;
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.PageTabList
    Accessible.name: "Settings"
    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)

    ScrollPane {
        anchors.fill: parent
        contentHeight: column.height + 32

        Column {
            id: column
            x: 10
            y: 16
            width: root.width - 20

            OrvHeading {
                id: heading
                x: 10
                height: 32
                text: "Settings"
            }

            Repeater {
                model: root.tabs

                Column {
                    id: entry

                    required property var modelData
                    required property int index

                    readonly property bool begins: index === 0 || root.tabs[index - 1].section !== modelData.section
                    readonly property bool current: root.store.tab === modelData.tab

                    width: column.width

                    Text {
                        visible: entry.begins
                        x: 10
                        height: entry.index === 0 ? 24 : 28
                        verticalAlignment: Text.AlignVCenter
                        textFormat: Text.PlainText
                        text: entry.modelData.section
                        font: Theme.microBold
                        color: Theme.text2
                        Accessible.role: Accessible.Heading
                        Accessible.name: text
                    }

                    Pressable {
                        id: button
                        width: entry.width
                        height: 28
                        text: entry.modelData.title
                        // The list's focus is on the current one, so that it is heard.
                        focus: entry.current
                        Accessible.role: Accessible.PageTab
                        Accessible.focusable: true
                        Accessible.selectable: true
                        Accessible.selected: entry.current
                        onClicked: {
                            forceActiveFocus(Qt.MouseFocusReason);
                            root.store.tab = entry.modelData.tab;
                        }

                        Rectangle {
                            anchors.fill: parent
                            radius: Theme.radiusControl
                            color: entry.current || button.down ? Theme.pressed : button.hovered ? Theme.hover : "transparent"
                            FocusRing { visible: button.activeFocus && InputMode.keyboard; inset: true }
                        }

                        Text {
                            anchors.fill: parent
                            leftPadding: 10
                            verticalAlignment: Text.AlignVCenter
                            elide: Text.ElideRight
                            textFormat: Text.PlainText
                            text: button.text
                            font: entry.current ? Theme.bodyBold : Theme.body
                            color: entry.current ? Theme.text : Theme.text2
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
}
