import QtQuick
import Orvella.Design

/// A conversation in the list: whom it is with, what it is about, and how it stands.
OrvTableRow {
    id: root

    required property OrvColumn column
    required property string contact
    required property string company
    required property string timeText
    required property string subject
    required property string snippet
    required property string labelTitle
    required property string labelTone
    required property bool draftReady
    required property bool written
    required property bool unread
    required property string said

    label: said

    OrvCell {
        id: cell
        column: root.column
        label: root.said

        readonly property real edge: width - 16

        Rectangle {
            visible: root.unread
            x: 12
            y: 16
            width: 8
            height: 8
            radius: 4
            color: Theme.accentText
        }

        Text {
            id: name
            x: 28
            y: 10
            width: Math.min(implicitWidth, time.x - x - 8)
            height: 20
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.contact
            font: root.unread ? Theme.bodyBold : Theme.bodyStrong
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            x: name.x + name.width + 8
            y: 10
            width: Math.max(0, time.x - x - 8)
            height: 20
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.company
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }

        Text {
            id: time
            x: cell.edge - width
            y: 10
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.timeText
            font: root.unread ? Theme.smallStrong : Theme.small
            color: root.unread ? Theme.accentText : Theme.text3
            Accessible.ignored: true
        }

        Text {
            x: 28
            y: 30
            width: cell.edge - x
            height: 18
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.subject
            font: root.unread ? Theme.bodyStrong : Theme.body
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            x: 28
            y: 48
            width: cell.edge - x
            height: 18
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.snippet
            font: Theme.body
            color: Theme.text2
            Accessible.ignored: true
        }

        OrvBadge {
            id: badge
            visible: root.labelTitle !== ""
            x: 28
            y: 70
            width: Math.min(implicitWidth, cell.edge - x - (draft.visible ? draft.width + 12 : 0)
                - (unsent.visible ? unsent.width + 12 : 0))
            text: root.labelTitle
            tone: root.labelTone !== "" ? root.labelTone : "neutral"
        }

        WordMark {
            id: draft
            visible: root.draftReady
            x: badge.visible ? badge.x + badge.width + 12 : 28
            iconName: "document-edit"
            text: "Draft ready"
        }

        WordMark {
            id: unsent
            visible: root.written
            x: draft.visible ? draft.x + draft.width + 12 : draft.x
            iconName: "mail-reply-sender"
            text: "Not sent"
        }
    }

    component WordMark: Row {
        id: mark

        property string iconName: ""
        property string text: ""

        y: 70
        height: 20
        spacing: 6

        OrvIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: mark.iconName
            size: 12
            color: Theme.accentText
        }

        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: mark.text
            font: Theme.small
            color: Theme.accentText
            Accessible.ignored: true
        }
    }
}
