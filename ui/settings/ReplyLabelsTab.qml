pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// The labels that replies get.
SettingsPane {
    id: root

    summary: "Replies get one of these. They are edited in the web app."

    ResourceView {
        anchors.fill: parent
        resource: root.store.lists.labels
        emptyIcon: "tag"
        emptyTitle: "No reply labels"
        emptyText: "Labels of replies are made in the web app."
        errorTitle: "Couldn’t load the reply labels"
        onRetryRequested: root.store.refresh()

        OrvForm {
            anchors.fill: parent
            focus: true
            isStop: true

            Flow {
                id: labels
                width: parent.width
                spacing: 8

                Repeater {
                    model: root.store.lists.labelFacts

                    OrvBadge {
                        required property var modelData

                        text: modelData.name
                        tone: modelData.tone
                        longest: labels.width - 26
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                    }
                }
            }
        }
    }
}
