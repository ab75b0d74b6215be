import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A tooltip of its parent, for a pointer that rests on it. Made when first shown, since most never are. Not in a file
/// of bound components, which a type declared elsewhere cannot make.
Loader {
    id: root

    property string text: ""
    property string keys: ""
    /// To the right of its parent, for the rail; else above it.
    property bool beside: false
    /// Something else than the pointer wants it shown, the keyboard's focus say.
    property bool asked: false
    /// Not by the parent's own `hovered`: a button that is off has none, and why it is off is what its tooltip says.
    readonly property bool shown: (hover.hovered || asked) && text !== ""

    active: false
    visible: false
    onShownChanged: if (shown) active = true

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

    HoverHandler {
        id: hover
        parent: root.parent
    }
}
