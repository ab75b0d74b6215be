pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// A tooltip of its parent. Made when first shown, since most never are.
Loader {
    id: root

    property string text: ""
    property string keys: ""
    property bool shown: false
    /// To the right of its parent, for the rail; else above it.
    property bool beside: false

    active: shown || (item !== null && (item as T.ToolTip).visible)
    visible: false

    sourceComponent: T.ToolTip {
        id: tip
        parent: root.parent
        visible: root.shown
        delay: 500
        timeout: -1
        x: root.beside ? (parent ? parent.width + 8 : 0) : parent ? Math.round((parent.width - width) / 2) : 0
        y: root.beside ? (parent ? Math.round((parent.height - height) / 2) : 0) : -height - 6
        margins: 8
        padding: 8
        topPadding: 5
        bottomPadding: 5
        implicitWidth: Math.min(320, words.implicitWidth) + leftPadding + rightPadding
        implicitHeight: words.implicitHeight + topPadding + bottomPadding
        contentItem: Text {
            id: words
            textFormat: Text.PlainText
            text: root.keys === "" ? root.text : root.text + "  " + root.keys
            font: Theme.small
            color: Theme.inkOnTooltip
            wrapMode: Text.Wrap
        }
        background: Rectangle {
            radius: Theme.radiusControl
            color: Theme.tooltip
        }
        enter: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.hoverDuration } }
    }
}
