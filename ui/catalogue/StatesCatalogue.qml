pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// OrvStateView in each of its states.
Rectangle {
    id: root

    color: Theme.surface

    Grid {
        anchors.fill: parent
        columns: 2

        Repeater {
            model: [["loading", false], ["empty", false], ["error", false], ["offline", false], ["offline", true], ["ready", true]]

            OrvStateView {
                id: view

                required property var modelData

                width: root.width / 2
                height: root.height / 3
                status: modelData[0]
                hasContent: modelData[1]
                refreshing: modelData[0] === "ready"
                emptyIcon: "mail-send"
                emptyTitle: "No campaigns yet"
                emptyText: "A campaign is a sequence of emails sent to a list of leads from inboxes that are ready to send."
                emptyAction: "New campaign"
                errorTitle: "Couldn’t load campaigns"
                errorText: status === "error" ? "The service had a problem. Try again." : ""

                Text {
                    x: 24
                    y: 16
                    textFormat: Text.PlainText
                    text: "Content"
                    font: Theme.body
                    color: Theme.text
                }
            }
        }
    }
}
