import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Setup

/// A new project in two questions.
OnDemand {
    id: root

    required property NewProject form

    shown: form.shown

    sourceComponent: OrvDialog {
        title: root.form.named ? "Name your project." : "What kind of inboxes is this for?"
        confirmText: root.form.named ? "Create project" : "Continue"
        confirmEnabled: root.form.canGoOn
        busy: root.form.busy
        error: root.form.error
        onConfirmed: root.form.goOn()
        onCancelled: root.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        Column {
            id: kinds
            visible: !root.form.named
            width: parent.width
            spacing: 8

            Repeater {
                model: root.form.modes

                KindChoice {
                    required property choice modelData

                    width: kinds.width
                    title: modelData.label
                    detail: modelData.detail
                    picked: root.form.mode === modelData.key
                    onChosen: root.form.mode = modelData.key
                }
            }
        }

        OrvField {
            id: field
            visible: root.form.named
            width: parent.width
            label: "Name"
            placeholder: "Spring domains"
            text: root.form.name
            onEdited: text => root.form.name = text
            onVisibleChanged: if (visible) forceActiveFocus(Qt.OtherFocusReason)
        }

        OrvLink {
            visible: root.form.named
            text: "Another kind"
            onClicked: root.form.back()
        }
    }
}
