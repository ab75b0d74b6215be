import QtQuick
import Orvella.Design

/// Where a message leads: the addresses themselves, never other words for them.
Column {
    id: root

    property list<string> links

    signal chosen(string url)

    topPadding: 6

    Repeater {
        model: root.links

        Item {
            id: link

            required property string modelData

            width: root.width
            height: address.height

            OrvIcon {
                y: 6
                name: link.modelData.startsWith("mailto:") ? "mail-message" : "internet-services"
                size: 14
                color: Theme.text3
            }

            OrvLink {
                id: address
                x: 20
                width: Math.min(implicitWidth, root.width - x)
                text: link.modelData
                // A host may be long to hide how it ends: the longest there can be fits into these.
                mostLines: 8
                Accessible.role: Accessible.Link
                onClicked: root.chosen(link.modelData)
            }
        }
    }
}
