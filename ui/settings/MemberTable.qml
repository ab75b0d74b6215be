import QtQuick
import QtQml
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// The members. Enter on one opens the roles.
FocusScope {
    id: root

    required property MembersStore store
    property alias rows: table.rows

    function openRoles(key: string) {
        if (!store.canChange(key))
            return;
        roles.member = key;
        const row = table.itemOf(key);
        roles.openIn(row, roleCells.x, row.height - 6);
    }

    OrvTable {
        id: table
        anchors.fill: parent
        focus: true
        title: "Members"
        name: "members"
        model: root.store.rows
        keyRole: "id"
        rowHeight: 46
        sidePadding: 16
        busyKeys: root.store.busy
        columns: [
            OrvColumn { id: nameCells; key: "name"; title: "Name"; fill: true; minimumWidth: 140 },
            OrvColumn { id: emailCells; key: "email"; title: "Email"; preferredWidth: 208; yields: 1 },
            OrvColumn { id: roleCells; key: "role"; title: "Role"; preferredWidth: 108 },
            OrvColumn { id: signInCells; key: "lastSignIn"; title: "Last sign-in"; preferredWidth: 100 },
            OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 36; resizable: false }
        ]
        delegate: MemberRow {
            nameColumn: nameCells
            emailColumn: emailCells
            roleColumn: roleCells
            signInColumn: signInCells
            actionsColumn: actionsCells
            manageable: root.store.canManage
        }
        onOpened: key => root.openRoles(key)
        onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
        onDeleteRequested: key => root.store.act("remove", key)
    }

    ActionMenu {
        id: menu
        store: root.store
    }

    MenuLoader {
        id: roles

        // By id: rows move while it is open.
        property string member: ""

        sourceComponent: OrvMenu {
            id: list
            title: "Role"
            width: 312

            Instantiator {
                model: root.store.roles

                OrvMenuItem {
                    required property choice modelData

                    text: modelData.label
                    detail: modelData.detail
                    tickable: true
                    ticked: modelData.key === root.store.roleOf(roles.member)
                    onTriggered: root.store.changeRole(roles.member, modelData.key)
                }

                onObjectAdded: (index, object) => list.insertItem(index, object)
                onObjectRemoved: (index, object) => list.removeItem(object)
            }
        }
    }
}
