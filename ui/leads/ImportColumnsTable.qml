import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Leads

/// The columns of the chosen file, with what each becomes.
Column {
    id: root

    required property CsvImportForm importing
    readonly property int rowHeight: 40
    /// To the dialog's edges; the bar stands in it.
    readonly property int bleed: 24
    readonly property int rowsAtMost: Window.height >= 760 ? 8 : 5

    Item {
        width: parent.width
        height: 30

        Text {
            id: title
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Columns"
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            x: title.width + 10
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.importing.matchedText
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            anchors.right: parent.right
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.importing.sampledText
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    Rectangle {
        x: -root.bleed
        width: root.width + 2 * root.bleed
        height: 32
        color: Theme.bg

        HeadText { x: root.bleed; text: "Column" }
        HeadText { x: root.bleed + 168; text: "Sample" }
        HeadText { x: parent.width - 220 - root.bleed; text: "Import as" }
    }

    ListView {
        id: list
        x: -root.bleed
        width: root.width + 2 * root.bleed
        height: Math.min(count, root.rowsAtMost) * root.rowHeight
        model: root.importing.columns
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        interactive: contentHeight > height

        Accessible.role: Accessible.List
        Accessible.name: "The file’s columns"

        T.ScrollBar.vertical: OrvScrollBar {}
        RowFocus { target: list }

        delegate: ImportColumnRow {
            x: root.bleed
            width: root.width
            height: root.rowHeight
            targets: root.importing.targets
            onChosen: (row, target) => root.importing.setTarget(row, target)
        }
    }

    component HeadText: Text {
        height: 32
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        font: Theme.smallStrong
        color: Theme.text3
        Accessible.ignored: true
    }
}
