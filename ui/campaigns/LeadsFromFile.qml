import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Picks a CSV file, by panel or by dropping it, and shows how its beginning reads.
Column {
    id: root

    required property LeadAdding adding

    spacing: 12

    FileBox {
        width: parent.width
        name: root.adding.fileName
        facts: root.adding.fileFacts
        looking: root.adding.fileLooking
        onChooseRequested: root.adding.chooseFile()
        onDropped: file => root.adding.dropFile(file)
    }

    OrvNotice {
        width: parent.width
        visible: text !== ""
        text: root.adding.fileWarning
    }

    ListView {
        id: preview

        readonly property int rowHeight: 26

        visible: count > 0
        width: parent.width
        height: Math.min(count, 8) * rowHeight
        model: root.adding.fileColumns
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        activeFocusOnTab: interactive
        interactive: contentHeight > height
        Keys.onPressed: event => keys.take(event)

        Accessible.role: Accessible.List
        Accessible.name: "The file’s columns"

        T.ScrollBar.vertical: OrvScrollBar {}
        ScrollKeys { id: keys; target: preview }

        delegate: PreviewColumn {}
    }

    component PreviewColumn: Item {
        id: column

        required property string name
        required property string samples

        width: preview.width
        height: preview.rowHeight

        Accessible.role: Accessible.ListItem
        Accessible.name: column.name + ", " + example.text

        Text {
            id: heading
            width: 168
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            maximumLineCount: 1
            textFormat: Text.PlainText
            text: column.name
            font: Theme.smallStrong
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            id: example
            x: heading.width + 12
            width: parent.width - x - 12
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            maximumLineCount: 1
            textFormat: Text.PlainText
            text: column.samples === "" ? "empty in the first rows" : column.samples
            font: Theme.small
            color: column.samples === "" ? Theme.text3 : Theme.text2
            Accessible.ignored: true
        }
    }
}
