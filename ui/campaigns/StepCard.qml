import QtQuick
import Orvella.Design

/// One email in the timeline.
Pressable {
    id: root

    required property string title
    required property string when
    required property string subject
    required property bool subjectIsNote
    required property string letters
    required property string sent
    required property string replied
    required property bool current
    /// The keyboard is in the timeline.
    property bool ringed: false

    implicitHeight: sent === "" ? 58 : 76
    text: title

    Accessible.role: Accessible.ListItem
    Accessible.name: title + ", " + when + ", " + subject + (sent !== "" ? ", " + sent + ", " + replied : "")
    Accessible.selected: current

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: root.hovered && !root.current ? Theme.hover : Theme.surface
        border { width: root.current ? 2 : 1; color: root.current ? Theme.accentText : Theme.border }

        FocusRing {
            visible: root.ringed
            innerRadius: Theme.radiusCard
            anchors.margins: -3
        }
    }

    Item {
        anchors.fill: parent

        Text {
            id: titleText
            x: 11
            y: 8
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.title
            font: Theme.bodyBold
            color: Theme.text
        }

        Text {
            anchors { left: titleText.right; leftMargin: 8; right: letterRow.left; rightMargin: 6 }
            y: 8
            height: 20
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.when
            font: Theme.body
            color: Theme.text2
        }

        Row {
            id: letterRow
            x: parent.width - width - 9
            y: 9
            spacing: 4

            Repeater {
                // More than these would push the title out.
                model: root.letters.length > 4 ? [root.letters[0], root.letters[1], "+" + (root.letters.length - 2)]
                                               : root.letters.split("")

                Rectangle {
                    required property string modelData

                    width: Math.max(18, letter.implicitWidth + 8)
                    height: 18
                    radius: Theme.radiusTag
                    color: Theme.neutralSubtle

                    Text {
                        id: letter
                        anchors.centerIn: parent
                        textFormat: Text.PlainText
                        text: parent.modelData
                        font: Theme.microBold
                        color: Theme.text2
                    }
                }
            }
        }

        Text {
            x: 11
            y: 28
            width: parent.width - 22
            height: 20
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.subject
            font: Theme.body
            color: root.subjectIsNote ? Theme.text2 : Theme.text
        }

        Row {
            visible: root.sent !== ""
            x: 11
            y: 49
            height: 18
            spacing: 12

            Text {
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.sent
                font: Theme.small
                color: Theme.text2
            }

            Text {
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.replied
                font: Theme.small
                color: Theme.text2
            }
        }
    }
}
