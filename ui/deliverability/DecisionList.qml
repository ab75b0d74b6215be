pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Deliverability

/// What the watcher decided about an inbox, or would have decided, the newest first.
Column {
    id: root

    required property InboxDetail inbox

    Text {
        height: 30
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: "What I decided"
        font: Theme.bodyBold
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Text {
        visible: root.inbox.decisions.count === 0
        width: root.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: "Nothing yet."
        font: Theme.body
        color: Theme.text2
    }

    Repeater {
        model: root.inbox.decisions

        Item {
            id: line

            required property int index
            required property string title
            required property string why
            required property string when
            required property string mark
            required property bool executed

            width: root.width
            height: reason.y + reason.height + 10

            Accessible.role: Accessible.StaticText
            Accessible.name: title + ", " + mark + ", " + when + ". " + why

            OrvDivider {
                visible: line.index > 0
                width: parent.width
            }

            Text {
                y: 8
                width: moment.x - 8
                height: 20
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: line.title
                font: Theme.bodyStrong
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                id: moment
                x: badge.x - width - 8
                y: 8
                height: 20
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: line.when
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }

            OrvBadge {
                id: badge
                x: parent.width - width
                y: 8
                text: line.mark
                shape: line.executed ? "dot" : "ring"
            }

            Text {
                id: reason
                y: 30
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: line.why
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
