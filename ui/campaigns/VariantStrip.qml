pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// The variants of an email, the weight of the one shown and whether it is on.
Item {
    id: root

    required property SequenceEditor editor
    property bool canWrite: true

    function step(by: int) {
        editor.showVariant(variants.around(by));
    }

    ChoiceList {
        id: variants
        options: root.editor.variants
        current: root.editor.variantKey
    }

    implicitHeight: 40

    FocusScope {
        id: strip
        x: 16
        width: Math.min(letters.implicitWidth, weight.x - x - 48)
        height: parent.height
        activeFocusOnTab: true
        clip: true

        Accessible.role: Accessible.PageTabList
        Accessible.name: "Variants"
        Keys.onLeftPressed: root.step(-1)
        Keys.onRightPressed: root.step(1)
        Keys.onDeletePressed: if (root.canWrite) root.editor.removeVariant(root.editor.variantKey)

        Row {
            id: letters
            height: parent.height
            // The one shown is always in sight, however many there are.
            x: Math.min(0, strip.width - implicitWidth) * (variants.count > 1 ? variants.currentIndex / (variants.count - 1) : 0)
            spacing: 16

            Repeater {
                model: variants

                Pressable {
                    id: tab

                    required property choice modelData
                    readonly property bool current: modelData.key === root.editor.variantKey

                    height: letters.height
                    implicitWidth: words.implicitWidth + 16
                    text: "Variant " + modelData.label

                    Accessible.role: Accessible.PageTab
                    Accessible.name: text + ", " + modelData.detail
                    Accessible.selected: current
                    onClicked: root.editor.showVariant(modelData.key)

                    Row {
                        id: words
                        height: parent.height
                        leftPadding: 8
                        spacing: 6

                        Text {
                            height: parent.height
                            verticalAlignment: Text.AlignVCenter
                            textFormat: Text.PlainText
                            text: tab.modelData.label
                            font: tab.current ? Theme.bodyBold : Theme.bodyStrong
                            color: tab.current || tab.hovered ? Theme.text : Theme.text2
                        }

                        Text {
                            height: parent.height
                            verticalAlignment: Text.AlignVCenter
                            textFormat: Text.PlainText
                            text: tab.modelData.detail
                            font: Theme.body
                            color: tab.modelData.ticked ? Theme.text2 : Theme.text3
                        }
                    }

                    Rectangle {
                        visible: tab.current
                        y: parent.height - 2
                        width: parent.width
                        height: 2
                        color: Theme.accentText
                    }

                    FocusRing {
                        visible: tab.current && strip.activeFocus && InputMode.keyboard
                        inset: true
                    }
                }
            }
        }
    }

    OrvButton {
        id: add
        visible: root.canWrite && root.editor.canAddVariant
        x: strip.x + strip.width + 6
        anchors.verticalCenter: parent.verticalCenter
        kind: "ghost"
        size: "small"
        iconOnly: true
        iconName: "list-add"
        text: "Add an A/B variant"
        onClicked: root.editor.addVariant()
    }

    Text {
        anchors { right: weight.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
        visible: weight.visible
        textFormat: Text.PlainText
        text: "Weight"
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvNumberField {
        id: weight
        visible: variants.count > 1
        anchors { right: remove.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
        width: 96
        accessibleName: "Weight"
        enabled: root.canWrite
        from: 1
        to: 100
        value: root.editor.weight
        onEdited: value => root.editor.setWeight(value)
    }

    OrvButton {
        id: remove
        visible: root.canWrite && variants.count > 1
        anchors { right: enabledSwitch.left; rightMargin: 4; verticalCenter: parent.verticalCenter }
        kind: "ghost"
        size: "small"
        iconOnly: true
        iconName: "edit-delete"
        text: "Remove this variant"
        onClicked: root.editor.removeVariant(root.editor.variantKey)
    }

    OrvSwitch {
        id: enabledSwitch
        visible: variants.count > 1
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        enabled: root.canWrite
        checked: root.editor.enabled
        Accessible.name: "This variant is sent"
        onToggled: {
            const on = checked;
            checked = Qt.binding(() => root.editor.enabled);
            root.editor.setEnabled(on);
        }
    }
}
