import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// The first email as one of the leads gets it.
Pressable {
    id: root

    required property var model
    property bool tabStop: false

    readonly property bool current: model.current
    readonly property bool waiting: model.state === "waiting"
    readonly property bool wrong: model.state === "wrong"

    signal opened()

    activeFocusOnTab: tabStop || activeFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: model.words
    Accessible.description: [...model.findings, model.subject, ...model.body].join(" ")
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.selected: current

    Keys.onReturnPressed: root.opened()
    Keys.onEnterPressed: root.opened()

    TapHandler {
        onDoubleTapped: root.opened()
    }

    Rectangle {
        anchors.fill: parent
        color: root.hovered && !root.current ? Theme.hover : Theme.surface
    }

    Rectangle {
        visible: root.current
        anchors { fill: parent; margins: root.activeFocus && InputMode.keyboard ? 0 : 2 }
        color: "transparent"
        border { width: root.activeFocus && InputMode.keyboard ? 3 : 2; color: Theme.accentText }
    }

    Text {
        id: who
        x: 16
        y: 12
        width: Math.min(implicitWidth, marks.x - x - 8)
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.model.name
        font: Theme.bodyStrong
        color: Theme.text
    }

    Text {
        x: who.x + who.width + 8
        y: 12
        width: Math.max(0, marks.x - x - 8)
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.model.company
        font: Theme.small
        color: Theme.text2
    }

    Row {
        id: marks
        x: root.width - width - 16
        y: 13
        height: 18
        spacing: 8

        OrvIcon {
            visible: !root.waiting
            anchors.verticalCenter: parent.verticalCenter
            size: 14
            name: root.wrong ? "data-warning" : "checkmark"
            color: root.wrong ? Theme.warning : Theme.positive
        }

        Rectangle {
            visible: root.model.letter !== ""
            width: 18
            height: 18
            radius: Theme.radiusTag
            color: Theme.neutralSubtle

            Text {
                anchors.centerIn: parent
                textFormat: Text.PlainText
                text: root.model.letter
                font: Theme.microBold
                color: Theme.text2
            }
        }
    }

    Text {
        id: subject
        visible: !root.waiting
        x: 16
        y: 36
        width: root.width - 32
        height: 17
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.model.subject
        font: Theme.smallStrong
        color: root.model.subjectIsWrong ? Theme.warning : Theme.text
    }

    ProofText {
        visible: !root.waiting
        x: 16
        y: 57
        width: root.width - 32
        height: root.height - y - 12
        lines: root.model.body.length > 0 ? root.model.body : root.model.findings
        wrong: root.model.wrong
        font: Theme.small
        ink: Theme.text2
        wrongInk: Theme.warning
        wrongGround: Theme.warningSubtle
    }

    Column {
        visible: root.waiting
        x: 16
        y: 40
        spacing: 9

        Repeater {
            model: [0.5, 0.25, 0.85, 0.7]

            Rectangle {
                required property real modelData

                width: (root.width - 32) * modelData
                height: 9
                radius: 3
                color: Theme.pressed
            }
        }
    }
}
