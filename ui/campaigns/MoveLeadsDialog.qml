import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Picks the campaign that leads move to.
OnDemand {
    id: root

    required property LeadMove move

    shown: move.shown

    sourceComponent: OrvDialog {
        id: dialog
        title: root.move.title
        text: "They start the other campaign’s sequence from its first step. This campaign writes to them no more."
        confirmText: "Move"
        confirmEnabled: root.move.canSubmit
        busy: root.move.busy
        error: root.move.error
        initialFocus: search
        onConfirmed: root.move.submit()
        onCancelled: root.move.cancel()

        SearchField {
            id: search
            ofPage: false
            width: parent.width
            placeholder: "Search campaigns"
            text: root.move.query
            onEdited: text => root.move.query = text
            onFinished: list.forceActiveFocus(Qt.TabFocusReason)
            onEscaped: dialog.cancel()
        }

        ResourceView {
            width: parent.width
            height: 232
            resource: root.move.campaigns
            skeletonRowHeight: 44
            skeletonTopInset: 0
            emptyTitle: "No other campaigns"
            errorTitle: "Couldn’t load campaigns"
            onRetryRequested: root.move.retry()

            ListView {
                id: list
                anchors.fill: parent
                model: root.move.options
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                clip: true
                currentIndex: 0

                Accessible.role: Accessible.List
                Accessible.name: "Campaigns"

                T.ScrollBar.vertical: OrvScrollBar {}

                Keys.onSpacePressed: pick()
                onActiveFocusChanged: if (activeFocus) pick()
                onCurrentIndexChanged: if (activeFocus) pick()

                function pickAt(index: int) {
                    currentIndex = index;
                    pick();
                }

                function pick() {
                    if (currentIndex >= 0 && currentIndex < count)
                        root.move.target = model[currentIndex].key;
                }

                delegate: CampaignChoice {
                    width: list.width
                    chosen: modelData.key === root.move.target
                    current: ListView.isCurrentItem && list.activeFocus
                    onPicked: list.pickAt(index)
                }
            }

            OrvEmpty {
                anchors.fill: parent
                visible: list.count === 0
                title: root.move.query === "" ? "No other campaigns" : "No campaigns match"
            }
        }
    }
}
