import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The imports of files, newest first, with how far those under way are.
FocusScope {
    id: root

    required property LeadImports imports
    property bool canWrite: true
    /// Which has a title of its own, and scrolls.
    property bool inDrawer: false
    readonly property real side: inDrawer ? 0 : 20

    implicitHeight: head.height + Math.max(list.contentHeight, 240)

    Rectangle {
        anchors.fill: parent
        visible: !root.inDrawer
        color: Theme.bg

        Rectangle {
            width: 1
            height: parent.height
            color: Theme.border
        }
    }

    Column {
        id: head
        x: root.side
        width: root.width - 2 * x
        topPadding: root.inDrawer ? 0 : 16
        bottomPadding: 12

        Text {
            visible: !root.inDrawer
            width: parent.width
            height: 20
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Import history"
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            width: parent.width
            height: 16
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: "CSV imports into your leads, newest first."
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    OrvDivider {
        y: head.height
        width: root.width
    }

    ResourceView {
        y: head.height + 1
        width: root.width
        height: root.height - y
        resource: root.imports.list
        emptyTitle: "No imports yet"
        emptyText: "Import a CSV to add your own leads."
        errorTitle: "Couldn’t load imports"
        onRetryRequested: root.imports.retry()

        ListView {
            id: list
            anchors.fill: parent
            model: root.imports.rows
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            activeFocusOnTab: false
            interactive: contentHeight > height

            Accessible.role: Accessible.List
            Accessible.name: "Import history"

            T.ScrollBar.vertical: OrvScrollBar {}
            RowFocus { target: list }

            delegate: ImportHistoryRow {
                width: ListView.view.width
                side: root.side
                canWrite: root.canWrite
                onCancelled: id => root.imports.cancel(id)
            }
        }
    }
}
