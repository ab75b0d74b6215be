import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// A lead's custom fields, to be read and changed.
Column {
    id: root

    required property LeadPanel panel
    required property bool canWrite

    spacing: 12

    Text {
        textFormat: Text.PlainText
        text: "Custom fields"
        font: Theme.bodyBold
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Repeater {
        model: root.panel.fieldNames

        OrvField {
            id: field

            required property string modelData
            readonly property int revision: root.panel.fieldsRevision

            width: root.width
            label: modelData
            readOnly: !root.canWrite
            onRevisionChanged: text = root.panel.fieldText(modelData)
            onEdited: text => root.panel.setField(modelData, text)
            onAccepted: root.panel.save()
            Component.onCompleted: text = root.panel.fieldText(modelData)
        }
    }

    RestoredNotice {
        width: parent.width
        recovery: root.panel.recovery
    }

    OrvNotice {
        width: parent.width
        visible: text !== ""
        text: root.panel.conflict
    }

    OrvNotice {
        width: parent.width
        visible: text !== ""
        tone: "negative"
        text: root.panel.error === "" ? "" : "Couldn’t save the fields. " + root.panel.error
    }

    Row {
        visible: root.panel.dirty || root.panel.saving
        spacing: 8

        OrvButton {
            kind: "primary"
            text: "Save"
            busy: root.panel.saving
            onClicked: root.panel.save()
        }

        OrvButton {
            text: "Discard"
            enabled: !root.panel.saving
            onClicked: root.panel.discard()
        }
    }
}
