import QtQuick
import Orvella.Design

/// One message of an OrvToastStack.
Rectangle {
    id: root

    property string message: ""
    property string detail: ""
    /// "standard", "success" or "error".
    property string tone: "standard"
    property string actionLabel: ""
    readonly property bool isError: tone === "error"
    readonly property bool hovered: hover.hovered

    signal actionRequested()
    signal closeRequested()

    width: 372
    height: Math.max(48, texts.height + 24)
    radius: 10
    color: Theme.tooltip

    Accessible.role: Accessible.AlertMessage
    Accessible.name: detail === "" ? message : message + " " + detail
    Accessible.description: isError ? "Error" : ""

    HoverHandler { id: hover }

    Keys.onEscapePressed: closeRequested()
    Keys.onDeletePressed: closeRequested()

    Item {
        visible: root.isError
        width: 3
        height: root.height
        clip: true

        Rectangle {
            width: 20
            height: parent.height
            radius: root.radius
            color: Theme.toastNegative
        }
    }

    OrvIcon {
        x: 16
        anchors.verticalCenter: parent.verticalCenter
        size: 16
        name: root.isError ? "data-error" : root.tone === "success" ? "checkmark" : "data-information"
        color: root.isError ? Theme.toastNegative : root.tone === "success" ? Theme.toastPositive : Theme.inkOnTooltip
    }

    Column {
        id: texts
        x: 44
        anchors.verticalCenter: parent.verticalCenter
        width: (action.visible ? action.x : close.x) - x - 12

        Text {
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.message
            font: Theme.bodyStrong
            color: Theme.inkOnTooltip
            Accessible.ignored: true
        }

        Text {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.detail
            font: Theme.small
            color: Theme.inkOnTooltip
            opacity: 0.78
            Accessible.ignored: true
        }
    }

    ToastButton {
        id: action
        visible: root.actionLabel !== ""
        anchors.verticalCenter: parent.verticalCenter
        x: close.x - width
        focus: visible
        text: root.actionLabel
        onClicked: root.actionRequested()
    }

    ToastButton {
        id: close
        anchors.verticalCenter: parent.verticalCenter
        x: root.width - width - 8
        focus: !action.visible
        text: "Close"
        iconName: "orv-close"
        onClicked: root.closeRequested()
    }
}
