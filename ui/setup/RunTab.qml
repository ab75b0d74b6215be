import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// A project's latest run: its total, its inboxes by domain, and beside them what the checks say of one of the domains.
FocusScope {
    id: root

    required property SetupProjectStore store

    RunTotal {
        id: total
        visible: root.store.runState === "ready"
        width: root.width
        store: root.store
    }

    OrvStateView {
        y: total.visible ? total.height : 0
        width: root.width
        height: root.height - y
        status: root.store.runState
        emptyIcon: "tools-wizard"
        emptyTitle: root.store.runEmptyTitle
        emptyText: root.store.runEmptyText
        errorTitle: "Couldn’t load the run."
        errorText: root.store.runFailure
        skeletonTable: table
        skeletonRowHeight: 34
        onRetryRequested: root.store.reloadRun()

        ListDetail {
            anchors.fill: parent
            focus: true
            table: table
            shownKey: root.store.selectedRow
            title: root.store.checks.domain
            detailWidth: 288
            detail: checks
            onStepped: key => root.store.select(key)
            onCloseRequested: root.store.closeChecks()

            OrvTable {
                id: table
                anchors.fill: parent
                focus: true
                title: "Inboxes of the run"
                name: "inbox-setup-run"
                rowHeight: 34
                model: root.store.runRows
                keyRole: "id"
                columns: [
                    OrvColumn { id: nameCells; key: "domain"; title: "Inbox"; fill: true; minimumWidth: 220 },
                    OrvColumn { id: roleCells; key: "role"; title: "Role"; preferredWidth: 76; yields: 2 },
                    OrvColumn { id: stepCells; key: "steps"; title: "Steps"; preferredWidth: 140; yields: 1 },
                    OrvColumn { id: stateCells; key: "state"; title: "State"; preferredWidth: 136; fixed: true },
                    OrvColumn { id: updatedCells; key: "updated"; title: "Updated"; preferredWidth: 52; alignment: Text.AlignRight; yields: 3 }
                ]
                delegate: RunLine {
                    nameColumn: nameCells
                    roleColumn: roleCells
                    stepColumn: stepCells
                    stateColumn: stateCells
                    updatedColumn: updatedCells
                    store: root.store
                }
                onOpened: key => root.store.select(key)
                onMenuRequested: (key, row, x, y) => menu.openFor(key, row, x, y)
            }
        }
    }

    ActionMenu {
        id: menu
        store: root.store
    }

    Component {
        id: checks

        ChecksPane {
            checks: root.store.checks
        }
    }
}
