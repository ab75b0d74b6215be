import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// A template in the list, or in the archive.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn lengthColumn
    required property OrvColumn stagesColumn
    required property OrvColumn whenColumn
    /// Only in the archive.
    property OrvColumn goneColumn: null
    property OrvColumn restoreColumn: null
    required property OrvColumn actionsColumn
    property bool archived: false

    required property string name
    required property string facts
    required property string lengthText
    required property list<stagePart> stages
    required property string stagesText
    required property string updatedText
    required property string archivedText
    required property string goneText

    signal restoreRequested(string key)

    label: name + ", " + lengthText

    OrvTwoLineCell {
        column: root.nameColumn
        title: root.name
        detail: root.facts
    }

    OrvTextCell {
        column: root.lengthColumn
        text: root.lengthText
        color: Theme.text2
    }

    StandingCell {
        column: root.stagesColumn
        stages: root.stages
        text: root.stagesText
        onSelected: root.ticked
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
        active: root.restoreColumn !== null
        height: root.height
        sourceComponent: OrvCell {
            column: root.restoreColumn

            OrvButton {
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                size: "small"
                text: "Restore"
                iconName: "edit-undo"
                focusPolicy: Qt.NoFocus
                activeFocusOnTab: false
                busy: root.busy
                onClicked: root.restoreRequested(root.key)
            }
        }
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.name
    }
}
