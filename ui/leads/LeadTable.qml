import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The table of what a search found, or of what is in a list.
PagedTable {
    id: root

    required property LeadResults results
    required property LeadColumns choice
    required property bool canWrite
    readonly property bool waiting: results.waiting
    readonly property list<string> shownKeys: [...choice.shown]
    /// The columns that hold a line of text, of those that show.
    readonly property var textColumns: {
        const all = [providerCells, locationCells, titleCells, industryCells, nicheCells, phoneCells, revenueCells, tierCells,
            keywordsCells, technologiesCells, companyCells, sizeCells, followersCells, addedCells, linkedinCells, websiteCells,
            databaseCells];
        return all.filter(column => shownKeys.includes(column.key));
    }

    title: "Leads"
    moreFailedMessage: "Couldn’t load more leads."
    name: "leads-" + choice.database
    rowHeight: 44
    sidePadding: 16
    choosable: false
    list: results.list
    selection: results.selection
    tickable: canWrite
    busyKeys: results.actions.allowance.busyIds
    opacity: waiting ? 0.5 : 1
    columns: [
        OrvColumn { id: nameCells; key: "name"; title: "Name"; frozen: true; preferredWidth: 184; minimumWidth: 140 },
        OrvColumn { id: emailCells; key: "email"; title: "Email"; preferredWidth: 222; minimumWidth: 160; visible: root.shownKeys.includes(key) },
        OrvColumn { id: providerCells; key: "provider"; title: "Provider"; preferredWidth: 104; visible: root.shownKeys.includes(key) },
        OrvColumn { id: locationCells; key: "location"; title: "Location"; preferredWidth: 132; visible: root.shownKeys.includes(key) },
        OrvColumn { id: titleCells; key: "title"; title: "Title"; preferredWidth: 152; visible: root.shownKeys.includes(key) },
        OrvColumn { id: industryCells; key: "industry"; title: root.choice.industryTitle; preferredWidth: 140; visible: root.shownKeys.includes(key) },
        OrvColumn { id: nicheCells; key: "niche"; title: "Niche"; preferredWidth: 132; visible: root.shownKeys.includes(key) },
        OrvColumn { id: phoneCells; key: "phone"; title: "Phone"; preferredWidth: 128; visible: root.shownKeys.includes(key) },
        OrvColumn { id: revenueCells; key: "revenue"; title: "Revenue"; preferredWidth: 104; visible: root.shownKeys.includes(key) },
        OrvColumn { id: tierCells; key: "tier"; title: "ICP tier"; preferredWidth: 64; visible: root.shownKeys.includes(key) },
        OrvColumn { id: keywordsCells; key: "keywords"; title: "Keywords"; preferredWidth: 180; visible: root.shownKeys.includes(key) },
        OrvColumn { id: technologiesCells; key: "technologies"; title: "Technologies"; preferredWidth: 180; visible: root.shownKeys.includes(key) },
        OrvColumn { id: companyCells; key: "company"; title: "Company"; preferredWidth: 178; fill: true; fixed: false; minimumWidth: 140; visible: root.shownKeys.includes(key) },
        OrvColumn { id: sizeCells; key: "size"; title: "Size"; preferredWidth: 52; alignment: Text.AlignRight; visible: root.shownKeys.includes(key) },
        OrvColumn { id: followersCells; key: "followers"; title: "Followers"; preferredWidth: 80; alignment: Text.AlignRight; visible: root.shownKeys.includes(key) },
        OrvColumn { id: verifiedCells; key: "verified"; title: "Verified"; preferredWidth: 100; visible: root.shownKeys.includes(key) },
        OrvColumn { id: addedCells; key: "added"; title: "Added"; preferredWidth: 72; visible: root.shownKeys.includes(key) },
        OrvColumn { id: linkedinCells; key: "linkedin"; title: "LinkedIn"; preferredWidth: 180; visible: root.shownKeys.includes(key) },
        OrvColumn { id: websiteCells; key: "website"; title: "Website"; preferredWidth: 160; visible: root.shownKeys.includes(key) },
        OrvColumn { id: databaseCells; key: "database"; title: "Database"; preferredWidth: 88; visible: root.shownKeys.includes(key) }
    ]
    delegate: LeadRow {
        nameColumn: nameCells
        emailColumn: emailCells
        verifiedColumn: verifiedCells
        textColumns: root.textColumns
        canUnlock: root.canWrite && !root.results.actions.unlocking
        unlockHint: root.results.actions.allowance.note
        onUnlockRequested: key => root.results.actions.allowance.unlockOne(key)
    }

    onOpened: key => results.card.open(key)
    onHoveredRowChanged: results.card.peek(hoveredRow < 0 ? "" : rows.keyAt(hoveredRow))
    // Whoever walks the rows with the keyboard opens the one they rest on.
    onCurrentKeyChanged: results.card.look(currentKey)
}
