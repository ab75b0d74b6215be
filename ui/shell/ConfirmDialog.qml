import QtQuick
import Orvella.Design
import Orvella.App

/// Asks the topmost question of Overlays and gives its answer back.
OnDemand {
    id: root

    required property Overlays overlays

    shown: overlays.asking

    sourceComponent: OrvDialog {
        id: dialog

        // Kept while it fades out, when the question is gone already.
        property int token: 0

        dialogWidth: 400
        // Before it shows: which button gets the focus depends on the question.
        Component.onCompleted: take()
        onConfirmed: root.overlays.answer(token, true)
        onCancelled: root.overlays.answer(token, false)

        function take() {
            if (!root.overlays.asking || token === root.overlays.token)
                return;
            token = root.overlays.token;
            title = root.overlays.title;
            text = root.overlays.text;
            confirmText = root.overlays.confirmLabel;
            cancelText = root.overlays.cancelLabel;
            destructive = root.overlays.destructive;
            typedWord = root.overlays.typedWord;
            if (visible)
                firstFocus().forceActiveFocus(Qt.PopupFocusReason);
        }

        property Connections follower: Connections {
            target: root.overlays

            function onChanged() {
                dialog.take();
            }
        }
    }
}
