import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The campaigns that take over this one's leads when a reply gets a label.
FocusScope {
    id: root

    required property CampaignStore store
    readonly property Subsequences page: store.subsequences

    Component.onCompleted: page.ensureLoaded()

    Item {
        id: head
        visible: root.page.list.hasContent
        width: root.width
        height: visible ? 56 : 0

        Text {
            x: Theme.pageSide
            width: create.x - x - 16
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: "Send leads who reply with a label into their own follow-up steps."
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvButton {
            id: create
            anchors { right: parent.right; rightMargin: Theme.pageSide; verticalCenter: parent.verticalCenter }
            visible: root.store.canWrite
            text: "New subsequence"
            iconName: "list-add"
            onClicked: root.page.beginCreate()
        }
    }

    ResourceView {
        y: head.height
        width: root.width
        height: root.height - y
        resource: root.page.list
        skeletonTable: table
        emptyIcon: "mail-reply-sender"
        emptyTitle: "No subsequences yet"
        emptyText: "Send leads who reply with a label into their own follow-up steps."
        emptyAction: root.store.canWrite ? "New subsequence" : ""
        errorTitle: "Couldn’t load the subsequences"
        onEmptyActionRequested: root.page.beginCreate()
        onRetryRequested: root.page.refresh()

        OrvTable {
            id: table
            anchors.fill: parent
            focus: true
            title: "Subsequences"
            name: "subsequences"
            model: root.page.rows
            keyRole: "id"
            columns: [
                OrvColumn { id: nameCells; key: "name"; title: "Subsequence"; fill: true; minimumWidth: 200 },
                OrvColumn { id: statusCells; key: "status"; title: "Status"; preferredWidth: 104 },
                OrvColumn { id: stepsCells; key: "steps"; title: "Steps"; preferredWidth: 64; alignment: Text.AlignRight },
                OrvColumn { id: leadsCells; key: "leads"; title: "Leads"; preferredWidth: 72; alignment: Text.AlignRight },
                OrvColumn { id: sentCells; key: "sent"; title: "Sent"; preferredWidth: 72; alignment: Text.AlignRight },
                OrvColumn { id: repliedCells; key: "replied"; title: "Replied"; preferredWidth: 72; alignment: Text.AlignRight }
            ]
            delegate: SubsequenceRow {
                nameColumn: nameCells
                statusColumn: statusCells
                stepsColumn: stepsCells
                leadsColumn: leadsCells
                sentColumn: sentCells
                repliedColumn: repliedCells
            }
            onOpened: key => root.page.open(key)
        }
    }

    SubsequenceDialog {
        page: root.page
    }
}
