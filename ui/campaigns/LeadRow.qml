import QtQuick
import Orvella.Design
import Orvella.App

/// A lead in the table, of the campaign or of its archive.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn companyColumn
    required property OrvColumn statusColumn
    required property OrvColumn stepColumn
    required property OrvColumn whenColumn
    required property OrvColumn senderColumn
    required property OrvColumn removedColumn
    required property OrvColumn goneColumn
    required property OrvColumn restoreColumn
    required property OrvColumn actionsColumn

    required property string name
    required property string detail
    required property string company
    required property string jobTitle
    required property string statusWord
    required property string statusLabel
    required property string stepText
    required property string whenText
    required property string whenDetail
    required property string sender
    required property string removedText
    required property string goneText

    signal restoreRequested()

    label: name + ", " + statusLabel

    OrvTwoLineCell {
        column: root.nameColumn
        title: root.name
        detail: root.detail
    }

    OrvTwoLineCell {
        column: root.companyColumn
        title: root.company
        detail: root.jobTitle
    }

    OrvCell {
        column: root.statusColumn
        label: root.statusLabel

        LeadBadge {
            anchors.verticalCenter: parent.verticalCenter
            status: root.statusWord
            text: root.statusLabel
        }
    }

    OrvTextCell {
        column: root.stepColumn
        text: root.stepText
        color: Theme.text2
    }

    OrvTwoLineCell {
        column: root.whenColumn
        title: root.whenText
        detail: root.whenDetail
    }

    OrvTextCell {
        column: root.senderColumn
        text: root.sender
        color: Theme.text2
    }

    OrvTextCell {
        column: root.removedColumn
        text: root.removedText
        color: Theme.text2
    }

    OrvTextCell {
        column: root.goneColumn
        text: root.goneText
        color: Theme.text2
    }

    OrvCell {
        column: root.restoreColumn

        // Only the archive has it, and the rows of the others are made by the hundred.
        Loader {
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            active: root.restoreColumn.visible
            sourceComponent: OrvButton {
                size: "small"
                text: "Restore"
                iconName: "edit-undo"
                focusPolicy: Qt.NoFocus
                activeFocusOnTab: false
                busy: root.busy
                onClicked: root.restoreRequested()
            }
        }
    }

    RowMenuCell {
        row: root
        column: root.actionsColumn
        name: root.name
    }
}
