import QtQuick
import Orvella.Design

/// One row of a conversation: the head of a message, a piece of its text, what folds a quotation away, its addresses.
Item {
    id: root

    required property string part
    required property string foldId
    required property string sender
    required property string address
    required property string recipients
    required property string caption
    required property string time
    required property string text
    required property list<string> links
    required property bool inbound
    required property bool first
    required property bool open

    readonly property real textX: 56
    readonly property real textWidth: Math.min(Theme.readingWidth, width - textX - 60)

    signal foldRequested(string id)
    signal linkChosen(string url)

    implicitHeight: content.height
    height: implicitHeight

    Loader {
        id: content
        width: root.width
        sourceComponent: root.part === "head" ? headPart : root.part === "fold" ? foldPart : root.part === "links" ? linksPart : textPart
    }

    Component {
        id: headPart

        Item {
            id: line

            readonly property real above: root.first ? 0 : 12

            height: 46 + above
            Accessible.role: Accessible.Heading
            Accessible.name: [root.sender, root.address, root.recipients, root.caption, root.time].filter(word => word !== "").join(", ")

            OrvDivider {
                visible: !root.first
                x: 20
                y: line.above
                width: root.width - 2 * x
            }

            OrvAvatar {
                x: 20
                y: 14 + line.above
                name: root.sender
            }

            Text {
                id: sender
                x: root.textX
                y: 18 + line.above
                width: Math.min(implicitWidth, (note.x - x) * 0.6)
                height: 20
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.sender
                font: Theme.bodyBold
                color: Theme.text
                Accessible.ignored: true
            }

            OrvAddress {
                id: address
                x: sender.x + sender.width + 8
                y: 18 + line.above
                width: Math.max(0, Math.min(implicitWidth, note.x - x - 8))
                height: 20
                text: root.address
                font: Theme.small
                color: Theme.text2
            }

            Text {
                x: address.x + address.width
                y: 18 + line.above
                width: Math.max(0, note.x - x - 8)
                height: 20
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.address !== "" && root.recipients !== "" ? " · " + root.recipients : root.recipients
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }

            Row {
                id: note
                x: root.width - width - 20
                y: 18 + line.above
                height: 20
                spacing: 8

                Text {
                    // Who wrote it comes first where there is little room.
                    visible: root.width >= 480
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: root.caption
                    font: Theme.microText
                    color: Theme.text3
                    Accessible.ignored: true
                }

                Text {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: root.time
                    font: Theme.small
                    color: Theme.text2
                    Accessible.ignored: true
                }
            }
        }
    }

    Component {
        id: textPart

        Item {
            height: piece.height + 2

            TextLines {
                document: piece.textDocument
                height: Theme.readingLine
                text: root.text
            }

            // It can be selected and copied; it can hold nothing but text.
            TextEdit {
                id: piece
                x: root.textX
                width: root.textWidth
                readOnly: true
                selectByMouse: true
                textFormat: TextEdit.PlainText
                wrapMode: TextEdit.WrapAtWordBoundaryOrAnywhere
                font: Theme.reading
                color: root.part === "quote" ? Theme.text2 : Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.inkOnAccent
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }

    Component {
        id: foldPart

        Item {
            height: 34

            OrvButton {
                x: root.textX
                y: 4
                size: "small"
                text: root.open ? "Hide quoted text" : "•••"
                hint: root.open ? "" : "Show quoted text"
                Accessible.name: root.open ? "Hide quoted text" : "Show quoted text"
                onClicked: root.foldRequested(root.foldId)
            }
        }
    }

    Component {
        id: linksPart

        MessageLinks {
            x: root.textX
            width: root.textWidth
            links: root.links
            onChosen: url => root.linkChosen(url)
        }
    }
}
