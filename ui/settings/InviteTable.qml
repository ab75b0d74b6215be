import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// The invites that wait.
FocusScope {
    id: root

    required property InvitesStore store

    OrvTable {
        anchors.fill: parent
        focus: true
        title: "Pending invites"
        name: "invites"
        model: root.store.rows
        keyRole: "id"
        rowHeight: 42
        sidePadding: 16
        busyKeys: root.store.busy
        columns: [
            OrvColumn { id: emailCells; key: "email"; title: "Email"; fill: true; minimumWidth: 160 },
            OrvColumn { id: roleCells; key: "role"; title: "Role"; preferredWidth: 124 },
            OrvColumn { id: expiresCells; key: "expires"; title: "Expires"; preferredWidth: 120 },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 36; resizable: false }
        ]
        delegate: OrvTableRow {
            id: row

            required property string email
            required property string role
            required property string expires

            label: email + ", " + role

            OrvTextCell {
                column: emailCells
                text: row.email
                font: Theme.bodyStrong
                elide: Text.ElideMiddle
            }

            OrvTextCell {
                column: roleCells
                text: row.role
                color: Theme.text2
            }

            OrvTextCell {
                column: expiresCells
                text: row.expires
                color: Theme.text2
            }

            RowMenuCell {
                row: row
                column: actionsCells
                name: row.email
            }
        }
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        onDeleteRequested: key => root.store.act("revoke", key)
    }

    ActionMenu {
        id: menu
        store: root.store
    }
}
