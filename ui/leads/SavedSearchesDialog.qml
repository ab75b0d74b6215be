import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The saved searches, to open and to delete; and those deleted, to restore or to let go for good.
OnDemand {
    id: root

    required property LeadFinder finder
    required property bool canWrite
    readonly property SavedSearches saved: finder.saved

    shown: saved.archiveForm.shown

    sourceComponent: OrvDialog {
        id: dialog

        property string part: "saved"
        readonly property bool archive: part === "archived"
        readonly property list<choice> rows: archive ? root.saved.archivedChoices : root.saved.choices

        title: archive ? "Archived searches" : "Saved searches"
        text: archive ? "Deleted searches wait here for 30 days, then go for good." : "Filters that were kept under a name."
        confirmText: ""
        cancelText: "Done"
        onCancelled: root.saved.archiveForm.cancel()

        OrvSegments {
            label: "What is shown"
            options: [{key: "saved", label: "Saved"}, {key: "archived", label: "Archived"}]
            current: dialog.part
            onChosen: key => dialog.part = key
        }

        ResourceView {
            width: parent.width
            height: 280
            resource: dialog.archive ? root.saved.archived : root.saved.list
            emptyIcon: dialog.archive ? "archive-insert" : "bookmark-new"
            emptyTitle: dialog.archive ? "Nothing archived" : "No saved searches yet"
            emptyText: dialog.archive ? "Deleted searches land here, ready to restore."
                                      : "Set filters, then save them with “Save this search…”."
            errorTitle: dialog.archive ? "Couldn’t load the archived searches" : "Couldn’t load the saved searches"
            onRetryRequested: dialog.archive ? root.saved.showArchive() : root.saved.refresh()

            ListView {
                id: list
                anchors.fill: parent
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                model: ChoiceList { options: dialog.rows }

                T.ScrollBar.vertical: OrvScrollBar {}
                RowFocus { target: list }

                delegate: SavedSearchRow {
                    required property choice modelData

                    width: ListView.view.width
                    name: modelData.label
                    detail: modelData.detail
                    archived: dialog.archive
                    canWrite: root.canWrite
                    busy: root.saved.busyIds.includes(modelData.key)
                    onOpened: {
                        root.finder.open(modelData.key);
                        root.saved.archiveForm.cancel();
                    }
                    onDeleted: dialog.archive ? root.saved.removeForGood(modelData.key) : root.saved.remove(modelData.key)
                    onRestored: root.saved.restore(modelData.key)
                }
            }
        }
    }
}
