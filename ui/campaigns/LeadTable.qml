import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The table of a campaign's leads, or of those removed from it.
PagedTable {
    id: root

    required property CampaignLeads store
    required property bool canWrite
    readonly property bool archive: store.leadsArchived
    readonly property bool roomy: width >= 1080

    title: archive ? "Archived leads" : "Leads"
    name: archive ? "campaign-leads-archive" : "campaign-leads"
    list: store.leads
    selection: store.selection
    tickable: canWrite
    busyKeys: store.busyIds
    totalCount: store.totalCount
    columns: [
        OrvColumn { id: nameCells; key: "name"; title: "Lead"; fill: true; minimumWidth: 200 },
        OrvColumn { id: companyCells; key: "company"; title: "Company"; preferredWidth: root.roomy ? 200 : root.archive ? 112 : 152 },
        OrvColumn { id: statusCells; key: "status"; title: "Status"; preferredWidth: 116 },
        OrvColumn { id: stepCells; key: "step"; title: "Step"; preferredWidth: 64; visible: !root.archive; yields: 1 },
        OrvColumn { id: whenCells; key: "when"; title: "When"; preferredWidth: 124; visible: !root.archive },
        OrvColumn { id: senderCells; key: "sender"; title: "Written to by"; preferredWidth: 200; visible: !root.archive; yields: 2 },
        OrvColumn { id: removedCells; key: "removed"; title: "Removed"; preferredWidth: 96; visible: root.archive },
        OrvColumn { id: goneCells; key: "gone"; title: "Goes for good"; preferredWidth: 112; visible: root.archive },
        OrvColumn { id: restoreCells; key: "restore"; title: "Restore"; titleHidden: true; preferredWidth: 104; visible: root.archive && root.canWrite; resizable: false },
        OrvColumn { id: actionsCells; key: "actions"; title: "Actions"; titleHidden: true; preferredWidth: 40; resizable: false }
    ]
    delegate: LeadRow {
        id: row
        nameColumn: nameCells
        companyColumn: companyCells
        statusColumn: statusCells
        stepColumn: stepCells
        whenColumn: whenCells
        senderColumn: senderCells
        removedColumn: removedCells
        goneColumn: goneCells
        restoreColumn: restoreCells
        actionsColumn: actionsCells
        onRestoreRequested: root.store.restore([row.key])
    }

    onOpened: key => store.open(key)
    onDeleteRequested: key => {
        if (canWrite)
            archive ? store.removeForGood(key) : store.remove([key]);
    }
}
