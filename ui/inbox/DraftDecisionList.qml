pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Inbox

/// What was decided within the last minute, each to be taken back, and what the agent learned of it; before these what
/// the person wrote about drafts that were decided without it.
Rectangle {
    id: root

    required property DraftsStore drafts
    property real mostHeight: 156
    readonly property int count: list.count + leftovers.count

    height: Math.min(mostHeight, lesson.height + 41 * leftovers.count + list.contentHeight + 2)
    radius: Theme.radiusCard
    color: Theme.surface
    border { width: 1; color: Theme.border }

    // Not the list's header: Qt 6.4 makes none in a file of bound components.
    DraftLesson {
        id: lesson
        x: 1
        y: 1
        width: parent.width - 2
        feedback: root.drafts.feedback
    }

    ListView {
        id: leftovers
        x: 1
        y: lesson.y + lesson.height
        width: lesson.width
        // With room for one decision.
        height: Math.min(41 * count, Math.max(0, parent.height - y - 1 - Math.min(list.contentHeight, 41)))
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.drafts.leftovers.rows
        Accessible.role: Accessible.List
        Accessible.name: "What you wrote and nobody sent"

        T.ScrollBar.vertical: OrvScrollBar {}
        RowFocus { target: leftovers }

        delegate: DraftLeftover {
            width: leftovers.width
            onCopyRequested: root.drafts.leftovers.copy(id)
            onDiscardRequested: root.drafts.leftovers.discard(id)
        }
    }

    ListView {
        id: list
        x: 1
        y: leftovers.y + leftovers.height
        width: lesson.width
        height: parent.height - y - 1
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.drafts.decisions.rows
        Accessible.role: Accessible.List
        Accessible.name: "Decisions that can be taken back"

        T.ScrollBar.vertical: OrvScrollBar {}
        RowFocus { target: list }

        delegate: Item {
            id: row

            required property string id
            required property bool approved
            required property string text
            required property string seconds
            required property bool settled

            width: list.width
            height: 41
            Accessible.role: Accessible.ListItem
            Accessible.name: row.text + (row.seconds !== "" ? " in " + row.seconds : "")

            OrvIcon {
                x: 14
                y: 13
                size: 14
                name: row.approved ? "document-send" : "orv-close"
                color: row.approved ? Theme.accentText : Theme.text2
            }

            Text {
                id: said
                x: 36
                width: Math.min(implicitWidth, undoing.x - x - 8 - (due.visible ? due.width + 4 : 0))
                height: 40
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideMiddle
                textFormat: Text.PlainText
                text: row.text + (due.visible ? " in" : "")
                font: Theme.body
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                id: due
                visible: row.seconds !== ""
                x: said.x + said.width + 4
                height: 40
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: row.seconds
                font: Theme.bodyBold
                color: Theme.text
                Accessible.ignored: true
            }

            OrvLink {
                visible: !row.approved && row.settled && root.drafts.canWrite
                x: said.x + said.width + 10
                height: 40
                text: "Why?"
                onClicked: root.drafts.reason.ask(row.id)
            }

            OrvLink {
                id: undoing
                x: parent.width - width - 16
                height: 40
                enabled: root.drafts.canWrite
                text: "Undo"
                Accessible.name: "Undo, " + row.text
                onClicked: root.drafts.decisions.undo(row.id)
            }

            OrvDivider {
                y: 40
                width: parent.width
            }
        }
    }
}
