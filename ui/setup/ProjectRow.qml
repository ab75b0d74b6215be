import QtQuick
import Orvella.Design
import Orvella.App

/// A project in the list, or in the archive.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn modeColumn
    required property OrvColumn domainsColumn
    /// Not in the archive.
    property OrvColumn runColumn: null
    property OrvColumn progressColumn: null
    required property OrvColumn whenColumn
    /// Only in the archive.
    property OrvColumn goneColumn: null
    property Store actor: null
    required property OrvColumn actionsColumn
    property bool archived: false

    required property string name
    required property string facts
    required property string modeText
    required property string domainsText
    required property string runText
    required property string runTone
    required property string progressText
    required property double progress
    required property string updatedText
    required property string archivedText
    required property string goneText

    label: name + ", " + (archived ? "deleted " + archivedText : runText)

    OrvTwoLineCell {
        column: root.nameColumn
        title: root.name
        detail: root.facts
    }

    OrvTextCell {
        column: root.modeColumn
        text: root.modeText
        color: Theme.text2
    }

    OrvTextCell {
        column: root.domainsColumn
        text: root.domainsText
    }

    Loader {
        active: root.runColumn !== null
        height: root.height
        sourceComponent: OrvCell {
            column: root.runColumn
            label: root.runText

            OrvBadge {
                anchors.verticalCenter: parent.verticalCenter
                text: root.runText
                tone: root.runTone
                shape: root.progressText === "" ? "ring" : root.runTone === "negative" ? "square" : root.runTone === "warning" ? "diamond" : "dot"
            }
        }
    }

    Loader {
        active: root.progressColumn !== null
        height: root.height
        sourceComponent: OrvCell {
            column: root.progressColumn
            label: root.progressText

            OrvProgress {
                visible: root.progressText !== ""
                y: root.height / 2 - 10
                width: root.progressColumn.width - 32
                value: root.progress
            }

            Text {
                y: root.height / 2 - (root.progressText === "" ? 8 : 1)
                width: root.progressColumn.width
                height: 16
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.progressText === "" ? "–" : root.progressText
                font: Theme.microText
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }

    OrvTextCell {
        column: root.whenColumn
        text: root.archived ? root.archivedText : root.updatedText
        color: Theme.text2
    }

    Loader {
        active: root.goneColumn !== null
        height: root.height
        sourceComponent: OrvTextCell {
            column: root.goneColumn
            text: root.goneText
            color: Theme.text2
        }
    }

    Loader {
        active: root.actor !== null
        height: root.height
        sourceComponent: RestoreCell {
            row: root
            actor: root.actor
            column: root.actionsColumn
            name: root.name
        }
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.name
    }
}
