import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The table of what a search found, or of what is in a list.
PagedTable {
    id: root

    required property LeadResults results
    required property bool canWrite

    title: "Leads"
    name: "leads"
    rowHeight: 44
    sidePadding: 16
    list: results.list
    selection: results.selection
    tickable: canWrite
    columns: [
        OrvColumn { id: nameCells; key: "name"; title: "Name"; frozen: true; preferredWidth: 184; minimumWidth: 140 },
        OrvColumn { id: emailCells; key: "email"; title: "Email"; preferredWidth: 222 },
        OrvColumn { id: locationCells; key: "location"; title: "Location"; preferredWidth: 140 },
        OrvColumn { id: companyCells; key: "company"; title: "Company"; fill: true; minimumWidth: 140; fixed: false },
        OrvColumn { id: sizeCells; key: "size"; title: "Size"; preferredWidth: 56; alignment: Text.AlignRight },
        OrvColumn { id: verifiedCells; key: "verified"; title: "Verified"; preferredWidth: 104 }
    ]
    delegate: LeadRow {
        nameColumn: nameCells
        emailColumn: emailCells
        locationColumn: locationCells
        companyColumn: companyCells
        sizeColumn: sizeCells
        verifiedColumn: verifiedCells
    }
    onOpened: key => results.card.open(key)
}
