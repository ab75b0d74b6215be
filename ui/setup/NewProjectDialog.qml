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
        id: dialog

        readonly property int pickedKind: root.form.modes.findIndex(mode => mode.key === root.form.mode)

        title: root.form.named ? "Name your project." : "What kind of inboxes is this for?"
        confirmText: root.form.named ? "Create project" : "Continue"
        confirmEnabled: root.form.canGoOn
        busy: root.form.busy
        error: root.form.error
        initialFocus: kind(Math.max(0, pickedKind))
        onConfirmed: root.form.goOn()
        onCancelled: root.form.cancel()

        function kind(index: int): KindChoice {
            return index < kindItems.count ? kindItems.itemAt(index) as KindChoice : null;
        }

        function pick(index: int) {
            const item = kind((index + kindItems.count) % kindItems.count);
            item.forceActiveFocus(Qt.TabFocusReason);
            item.clicked();
        }

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        Column {
            id: kinds
            visible: !root.form.named
            width: parent.width
            spacing: 8
            // Back from the second question.
            onVisibleChanged: if (visible && dialog.visible) dialog.initialFocus.forceActiveFocus(Qt.OtherFocusReason)

            Repeater {
                id: kindItems
                model: root.form.modes

                KindChoice {
                    required property choice modelData
                    required property int index

                    width: kinds.width
                    text: modelData.label
                    detail: modelData.detail
                    picked: root.form.mode === modelData.key
                    isEntry: index === Math.max(0, dialog.pickedKind)
                    onClicked: root.form.mode = modelData.key
                    onStepped: by => dialog.pick(index + by)
                    onEntered: {
                        clicked();
                        root.form.goOn();
                    }
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
