import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Campaigns

/// Picks a CSV file, by panel or by dropping it, and shows how its beginning reads.
Column {
    id: root

    required property LeadAdding adding
    readonly property bool known: adding.fileHeaders.length > 0

    spacing: 12

    Rectangle {
        width: parent.width
        height: 64
        radius: Theme.radiusControl
        color: drop.containsDrag ? Theme.selected : Theme.sunken
        border { width: 1; color: drop.containsDrag ? Theme.focus : Theme.border }

        DropArea {
            id: drop
            anchors.fill: parent
            enabled: root.enabled
            onDropped: event => {
                if (event.hasUrls)
                    root.adding.dropFile(event.urls[0]);
            }
        }

        Text {
            x: 16
            width: choose.x - x - 12
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            text: root.adding.fileName === "" ? "Drop a CSV file here"
                : root.adding.fileName + (root.adding.fileFacts === "" ? "" : " · " + root.adding.fileFacts)
            font: Theme.body
            color: root.adding.fileName === "" ? Theme.text2 : Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvButton {
            id: choose
            anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
            text: root.adding.fileName === "" ? "Choose file" : "Choose another"
            busy: root.adding.fileLooking
            onClicked: root.adding.chooseFile()
        }
    }

    OrvNotice {
        width: parent.width
        visible: text !== ""
        text: root.adding.fileWarning
    }

    Flickable {
        id: preview
        visible: root.known
        width: parent.width
        height: grid.height + 10
        contentWidth: grid.width
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        activeFocusOnTab: contentWidth > width
        Keys.onLeftPressed: contentX = Math.max(0, contentX - 120)
        Keys.onRightPressed: contentX = Math.min(Math.max(0, contentWidth - width), contentX + 120)

        Accessible.role: Accessible.Table
        Accessible.name: "The file’s first rows"

        T.ScrollBar.horizontal: OrvScrollBar {}

        Column {
            id: grid

            PreviewRow { cells: root.adding.fileHeaders; heading: true }

            Repeater {
                model: root.adding.fileSamples

                PreviewRow {
                    required property var modelData

                    cells: modelData
                }
            }
        }
    }

    component PreviewRow: Row {
        id: row

        property var cells: []
        property bool heading: false

        Accessible.role: Accessible.Row
        Accessible.name: cells.join(", ")

        Repeater {
            model: row.cells

            Text {
                required property string modelData

                width: 128
                height: 26
                rightPadding: 12
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                maximumLineCount: 1
                textFormat: Text.PlainText
                text: modelData
                font: row.heading ? Theme.smallStrong : Theme.small
                color: row.heading ? Theme.text2 : Theme.text
                Accessible.ignored: true
            }
        }
    }
}
