import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// Who is in the workspace, and who is invited.
SettingsPane {
    id: root

    readonly property real side: Theme.pageSide
    readonly property real tableWidth: Math.min(960, width - 2 * side)
    /// The invites keep their place however many members there are.
    readonly property real invitesHeight: invites.hasContent ? Math.min(34 + 42 * store.invites.rows.count, 34 + 42 * 4) : 150

    summary: "Everyone with access to this workspace."
    actions: [
        Text {
            visible: !root.store.canManage
            height: Theme.controlHeight
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Only admins can invite teammates."
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        },
        OrvButton {
            visible: root.store.canManage
            kind: "primary"
            iconName: "list-add-user"
            text: "Invite a teammate"
            keys: "N"
            onClicked: root.store.invite()
        }
    ]

    LinedTable {
        id: frame
        x: root.side
        y: 8
        width: root.tableWidth
        height: Math.min(members.hasContent ? 34 + 46 * root.store.members.rows.count : 280,
                         parent.height - y - root.invitesHeight - heading.height - 24)
        focus: true

        ResourceView {
            id: members
            anchors.fill: parent
            resource: root.store.members.list
            emptyIcon: "system-users"
            emptyTitle: "No members yet"
            emptyText: "Invite a teammate and they appear here once they sign in."
            errorTitle: "Couldn’t load members"
            skeletonRowHeight: 46
            onRetryRequested: root.store.refresh()

            MemberTable {
                anchors.fill: parent
                focus: true
                store: root.store.members
            }
        }
    }

    Item {
        id: heading
        x: root.side
        y: frame.y + frame.height
        width: root.tableWidth
        height: 60

        Text {
            id: headingText
            y: 28
            textFormat: Text.PlainText
            text: "Pending invites"
            font: Theme.paneTitle
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            x: headingText.width + 10
            anchors.baseline: headingText.baseline
            textFormat: Text.PlainText
            text: "Invites expire after 7 days."
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    LinedTable {
        x: root.side
        y: heading.y + heading.height
        width: root.tableWidth
        height: root.invitesHeight

        ResourceView {
            id: invites
            anchors.fill: parent
            resource: root.store.invites.list
            emptyTitle: "No pending invites"
            emptyText: "Invites expire after 7 days."
            errorTitle: "Couldn’t load the invites"
            skeletonRowHeight: 42
            onRetryRequested: root.store.refresh()

            InviteTable {
                anchors.fill: parent
                store: root.store.invites
            }
        }
    }

    InviteDialog {
        form: root.store.invites.form
    }
}
