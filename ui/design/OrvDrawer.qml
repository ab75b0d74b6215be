import QtQuick
import QtQuick.Templates as T

/// A panel from the window's right edge. In a wide window it stands beside the page, which stays usable; in a narrow
/// one it covers it, over a scrim.
T.Popup {
    id: root

    property string title: ""
    readonly property bool beside: parent ? parent.width >= 1280 : false
    readonly property FocusReturn focusReturn: FocusReturn {}

    /// Its owner decides whether it closes: something in it may not be saved.
    property bool asksToClose: false

    default property alias content: body.data

    signal closeRequested()

    function leave() {
        // By its id: the button in it has the name.
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

        Keys.onEscapePressed: root.leave()

        Text {
            x: 20
            width: close.x - x - 8
            height: 52
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.title
            font: Theme.paneTitle
            color: Theme.text
            Accessible.ignored: true
        }

        OrvButton {
            id: close
            anchors { right: parent.right; rightMargin: 12 }
            y: 11
            kind: "ghost"
            iconName: "orv-close"
            iconOnly: true
            text: "Close"
            onClicked: root.leave()
        }

        Rectangle {
            y: 51
            width: parent.width
            height: 1
            color: Theme.border
        }

        Flickable {
            y: 52
            width: parent.width
            height: parent.height - y
            contentHeight: body.childrenRect.height + 32
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            T.ScrollBar.vertical: OrvScrollBar {}

            Item {
                id: body
                x: 20
                y: 16
                width: parent.width - 40
                height: childrenRect.height
            }
        }
    }
}
