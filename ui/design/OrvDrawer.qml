import QtQuick
import QtQuick.Templates as T

/// A panel from the window's right edge. In a wide window it stands beside the page, which stays usable; in a narrow
/// one it covers it, over a scrim.
T.Popup {
    id: root

    property string title: ""
    readonly property bool beside: parent ? parent.width >= 1280 : false
    readonly property FocusReturn focusReturn: FocusReturn {}
    readonly property ModalLevel modalLevel: ModalLevel { held: root.visible && root.modal }

    /// Its owner decides whether it closes: something in it may not be saved.
    property bool asksToClose: false

    property alias steps: frame.steps
    default property alias content: frame.content

    signal closeRequested()
    signal stepRequested(int by)

    function leave() {
        asksToClose ? closeRequested() : root.close();
    }

    parent: T.Overlay.overlay
    x: parent ? parent.width - width : 0
    width: parent ? Math.min(440, Math.max(320, parent.width * 0.4)) : 440
    height: parent ? parent.height : 0
    padding: 0
    modal: !beside
    dim: !beside
    focus: true
    closePolicy: beside || asksToClose ? T.Popup.NoAutoClose : T.Popup.CloseOnPressOutside

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.dialogDuration; easing.type: Easing.OutCubic }
    }

    onAboutToShow: {
        focusReturn.remember(parent);
    }
    onOpened: contentItem.forceActiveFocus(Qt.PopupFocusReason)
    onAboutToHide: focusReturn.giveBack()

    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        TapHandler {
            enabled: root.asksToClose
            onTapped: root.leave()
        }
    }

    background: Rectangle {
        color: Theme.surface

        Rectangle {
            width: 1
            height: parent.height
            color: Theme.border
        }
    }

    contentItem: FocusScope {
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: root.title

        ModalPane {
            anchors.fill: parent
            level: root.modalLevel.level

            PanelFrame {
                id: frame
                anchors.fill: parent
                focus: true
                title: root.title
                onCloseRequested: root.leave()
                onStepRequested: by => root.stepRequested(by)
            }
        }
    }
}
