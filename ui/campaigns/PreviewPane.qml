pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// How the email being written reads for a lead. Left and Right move between the emails.
FocusScope {
    id: root

    required property SequenceEditor editor
    /// In a drawer, which has a title of its own.
    property bool bare: false

    readonly property SequencePreview preview: editor.preview

    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: preview.title

    Component.onCompleted: preview.watched = true
    Component.onDestruction: preview.watched = false

    Keys.onLeftPressed: editor.selectPlace(editor.place - 1)
    Keys.onRightPressed: editor.selectPlace(editor.place + 1)
    Keys.onPressed: event => scroll.keys.take(event)

    Rectangle {
        anchors.fill: parent
        color: root.bare ? Theme.surface : Theme.bg

        FocusRing {
            visible: root.activeFocus && InputMode.keyboard && !picker.activeFocus && !previous.activeFocus && !next.activeFocus
            inset: true
        }
    }

    Text {
        x: 16
        width: previous.x - x - 8
        height: 52
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.preview.title
        font: Theme.bodyBold
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    OrvButton {
        id: previous
        anchors { right: next.left; rightMargin: 2 }
        y: 11
        kind: "ghost"
        iconOnly: true
        iconName: "arrow-left"
        text: "Previous email"
        enabled: root.editor.place > 0
        onClicked: root.editor.selectPlace(root.editor.place - 1)
    }

    OrvButton {
        id: next
        anchors { right: parent.right; rightMargin: 10 }
        y: 11
        kind: "ghost"
        iconOnly: true
        iconName: "arrow-right"
        text: "Next email"
        enabled: root.editor.place < root.editor.stepCount - 1
        onClicked: root.editor.selectPlace(root.editor.place + 1)
    }

    OrvSelect {
        id: picker
        x: 16
        y: 52
        width: parent.width - 32
        options: root.preview.leads
        current: root.preview.lead
        enabled: root.preview.leadsNote === "" || root.preview.lead !== ""
        placeholder: root.preview.leadsNote !== "" ? root.preview.leadsNote : "A lead of the campaign"
        hint: "Whom the preview is rendered for"
        onChosen: key => root.preview.lead = key
    }

    ScrollPane {
        id: scroll
        y: 94
        width: parent.width
        height: foot.y - y
        contentHeight: column.height + 16
        interactive: contentHeight > height

        Column {
            id: column
            x: 16
            width: scroll.width - 32
            spacing: 10

            OrvNotice {
                visible: text !== ""
                width: parent.width
                tone: "negative"
                text: root.preview.message !== "" ? root.preview.message : root.preview.leadsFailed ? root.preview.leadsNote : ""
            }

            OrvLink {
                visible: root.preview.message !== "" || root.preview.leadsFailed
                text: "Try again"
                onClicked: root.preview.retry()
            }

            PreviewCard {
                visible: root.preview.answer.hasContent && root.editor.stepCount > 0
                width: parent.width
                preview: root.preview
            }

            OrvSkeleton {
                visible: root.preview.answer.state === Resource.Loading && root.editor.stepCount > 0
                width: parent.width
                height: 220
                topInset: 0
            }

            Row {
                visible: root.preview.answer.hasContent && root.preview.letter !== "" && root.editor.stepCount > 0
                spacing: 8

                OrvBadge {
                    text: "Variant " + root.preview.letter
                    tone: "accent"
                }

                Text {
                    height: 20
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: root.preview.pickedText
                    font: Theme.small
                    color: Theme.text2
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }

            Repeater {
                model: root.preview.answer.hasContent ? root.preview.warnings : []

                Item {
                    id: warning

                    required property string modelData

                    width: column.width
                    height: words.implicitHeight

                    OrvIcon {
                        y: 1
                        size: 14
                        name: "data-warning"
                        color: Theme.warning
                    }

                    Text {
                        id: words
                        x: 22
                        width: parent.width - x
                        textFormat: Text.PlainText
                        text: warning.modelData
                        font: Theme.small
                        color: Theme.text2
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.AlertMessage
                        Accessible.name: text
                    }
                }
            }
        }
    }

    Item {
        id: foot
        y: parent.height - height
        width: parent.width
        height: 39

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.border
        }

        Row {
            x: 16
            height: parent.height
            spacing: 8

            OrvKeyCap {
                anchors.verticalCenter: parent.verticalCenter
                text: "←"
            }

            OrvKeyCap {
                anchors.verticalCenter: parent.verticalCenter
                text: "→"
            }

            Text {
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: "to move between emails"
                font: Theme.small
                color: Theme.text2
            }
        }
    }
}
