pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// What the agent does by default: a choice that acts at once.
SettingsSection {
    id: root

    required property AgentMode mode

    key: "mode"
    title: "Default mode"

    Column {
        width: parent.width
        spacing: 14
        enabled: root.mode.canWrite && !root.mode.flipping
        opacity: root.mode.flipping ? 0.6 : 1

        Repeater {
            model: root.mode.modes

            Item {
                id: option

                required property choice modelData
                readonly property bool current: modelData.key === root.mode.mode

                width: parent.width
                height: words.height
                activeFocusOnTab: true
                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData.label
                Accessible.description: modelData.detail
                Accessible.checkable: true
                Accessible.checked: current
                Accessible.focusable: true
                Accessible.onPressAction: root.mode.choose(modelData.key)
                Keys.onSpacePressed: root.mode.choose(modelData.key)
                Keys.onReturnPressed: root.mode.choose(modelData.key)

                Rectangle {
                    y: 2
                    width: 16
                    height: 16
                    radius: 8
                    color: Theme.surface
                    border { width: option.current ? 5 : 1.5; color: option.current ? Theme.accent : Theme.borderControl }
                }

                FocusRing {
                    visible: option.activeFocus && InputMode.keyboard
                }

                Column {
                    id: words
                    x: 28
                    width: parent.width - x
                    spacing: 2

                    Text {
                        width: parent.width
                        textFormat: Text.PlainText
                        text: option.modelData.label
                        font: Theme.bodyStrong
                        color: Theme.text
                        Accessible.ignored: true
                    }

                    Text {
                        width: parent.width
                        wrapMode: Text.Wrap
                        textFormat: Text.PlainText
                        text: option.modelData.detail
                        font: Theme.small
                        color: Theme.text2
                        Accessible.ignored: true
                    }
                }

                TapHandler {
                    onTapped: root.mode.choose(option.modelData.key)
                }
            }
        }
    }

    Text {
        visible: text !== ""
        x: 28
        width: parent.width - x
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.mode.lastFlip + (root.mode.lastFlip !== "" ? "\n" : "") + root.mode.autoSend
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
