import QtQuick
import Orvella.Design

/// Takes a file that is dropped anywhere on the page, to import it.
DropArea {
    id: root

    signal fileDropped(url file)

    anchors.fill: parent
    keys: ["text/uri-list"]
    z: 5
    onDropped: event => {
        if (event.hasUrls)
            fileDropped(event.urls[0]);
    }

    Rectangle {
        anchors { fill: parent; margins: 8 }
        visible: root.containsDrag
        radius: Theme.radiusCard
        color: Theme.selected
        opacity: 0.92
        border { width: 2; color: Theme.accentText }

        Text {
            anchors.centerIn: parent
            textFormat: Text.PlainText
            text: "Drop a CSV file to import it"
            font: Theme.paneTitle
            color: Theme.text
        }
    }
}
