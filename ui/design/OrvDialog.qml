pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// A question or a short form over the window. Enter says the verb, Esc cancels; it closes only by closing it, so that
/// a verb can stay busy and fail in place. Make it on demand and let it go when it has closed.
T.Popup {
    id: root

    property string title: ""
    /// The one fact to read first, in the strong ink.
    property string lead: ""
    property string text: ""
    property string warning: ""
    property string error: ""
    /// Why it cannot be confirmed yet, beside the buttons.
    property string problem: ""
    /// Empty where there is nothing to confirm yet.
    property string confirmText: "OK"
    /// A quieter way on, at the other end of the buttons; empty for none.
    property string asideText: ""
    property string confirmIcon: ""
    /// Empty where there is nothing to cancel any more.
    property string cancelText: "Cancel"
    /// The verb cannot be taken back: it is red, and the focus starts on Cancel.
    property bool destructive: false
    property bool confirmEnabled: true
    property bool busy: false
    /// What must be typed, exactly, before the verb can be pressed.
    property string typedWord: ""
    /// Takes the focus first; for forms.
    property Item initialFocus: null
    /// 400 for a question of a line, 480, or 640 for forms.
    property real dialogWidth: 480
    readonly property bool canConfirm: confirmText !== "" && confirmEnabled && !busy && (typedWord === "" || word.text === typedWord)

    default property alias fields: form.data

    signal confirmed()
    signal cancelled()
    signal asideChosen()

    readonly property FocusReturn focusReturn: FocusReturn {}
    readonly property ModalLevel modalLevel: ModalLevel { held: root.visible && root.modal }

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.max(24, Math.round((parent.height - height) * 0.4)) : 0
    width: parent ? Math.min(dialogWidth, parent.width - 48) : dialogWidth
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    topPadding: 24
    bottomPadding: 20
    leftPadding: 24
    rightPadding: 24
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.dialogDuration; easing.type: Easing.OutCubic }
    }

    onAboutToShow: {
        focusReturn.remember(parent);
        word.text = "";
        firstFocus().forceActiveFocus(Qt.PopupFocusReason);
    }
    onAboutToHide: focusReturn.giveBack()

    function firstFocus(): Item {
        if (initialFocus)
            return initialFocus;
        if (typedWord !== "")
            return word;
        return destructive || confirmText === "" ? cancelButton : confirmButton;
    }

    function confirm() {
        if (canConfirm)
            confirmed();
    }

    /// A key that is still held from what opened the question does not answer it.
    function confirmBy(event) {
        if (!event.isAutoRepeat)
            confirm();
    }

    /// Also while the verb is under way, which goes on: nobody has to wait for a service that hangs.
    function cancel() {
        close();
        cancelled();
    }

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
        Behavior on opacity { NumberAnimation { duration: Theme.dialogDuration } }
    }

    background: OrvFloat {
        radius: 12
    }

    contentItem: FocusScope {
        implicitHeight: Math.min(column.implicitHeight, root.parent ? root.parent.height - 48 - 44 - 50 : column.implicitHeight)
            + 24 + buttons.height
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Accessible.description: (root.lead + " " + root.text + " " + root.warning).trim()

        Keys.onEscapePressed: root.cancel()
        Keys.onReturnPressed: event => root.confirmBy(event)
        Keys.onEnterPressed: event => root.confirmBy(event)
        Keys.onPressed: event => scroll.keys.take(event)

        ModalPane {
            anchors.fill: parent
            level: root.modalLevel.level

            ScrollPane {
                id: scroll
                // To the dialog's edges, so that the bar stands beside the content.
                x: -root.leftPadding
                width: parent.width + root.leftPadding + root.rightPadding
                height: parent.height - 24 - buttons.height
                contentHeight: column.implicitHeight
                interactive: contentHeight > height
                clip: interactive

                Column {
                    id: column
                    x: root.leftPadding
                    width: root.availableWidth
                    spacing: 10

                    DialogText {
                        text: root.title
                        font: Theme.dialogTitle
                        color: Theme.text
                    }

                    DialogText {
                        text: root.lead
                        font: Theme.bodyBold
                        color: Theme.text
                    }

                    DialogText {
                        text: root.text
                    }

                    OrvNotice {
                        width: parent.width
                        visible: text !== ""
                        text: root.warning
                    }

                    Column {
                        id: form
                        // Not by visibleChildren: those of a hidden parent are hidden.
                        visible: children.length > 0
                        width: parent.width
                        topPadding: 6
                        spacing: 16
                    }

                    OrvField {
                        id: word
                        visible: root.typedWord !== ""
                        width: parent.width
                        label: "Type " + root.typedWord + " to confirm"
                    }

                    OrvNotice {
                        width: parent.width
                        visible: text !== ""
                        tone: "negative"
                        text: root.error
                    }
                }
            }

            OrvButton {
                visible: text !== ""
                anchors.bottom: parent.bottom
                kind: "ghost"
                text: root.asideText
                iconName: "arrow-left"
                enabled: !root.busy
                onClicked: root.asideChosen()
            }

            Text {
                id: problemText
                anchors { left: parent.left; right: buttons.left; rightMargin: 16; bottom: parent.bottom }
                height: buttons.height
                visible: text !== "" && root.asideText === ""
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: root.problem
                font: Theme.small
                color: Theme.negative
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text

                SpokenError {
                    shownBy: problemText
                    text: root.problem
                }
            }

            Row {
                id: buttons
                anchors { right: parent.right; bottom: parent.bottom }
                spacing: 8

                OrvButton {
                    id: cancelButton
                    visible: text !== ""
                    text: root.cancelText
                    onClicked: root.cancel()
                }

                OrvButton {
                    id: confirmButton
                    visible: text !== ""
                    iconName: root.confirmIcon
                    kind: root.destructive ? "danger" : "primary"
                    text: root.confirmText
                    busy: root.busy
                    enabled: root.canConfirm || root.busy
                    onClicked: root.confirm()
                }
            }
        }
    }
}
