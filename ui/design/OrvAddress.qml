import QtQuick

/// An address on one line; any other text, too. Where it is too long it is cut within its domain: who somebody is stands
/// before the "@".
Item {
    id: root

    property string text: ""
    property font font: Theme.body
    property color color: Theme.text
    readonly property int at: text.lastIndexOf("@")
    /// The whole of it is seen.
    readonly property bool whole: width >= implicitWidth

    implicitWidth: Math.ceil(local.implicitWidth) + Math.ceil(domain.implicitWidth)
    implicitHeight: local.implicitHeight

    Text {
        id: local
        width: Math.min(Math.ceil(implicitWidth), root.width)
        height: root.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.at < 0 ? root.text : root.text.slice(0, root.at)
        font: root.font
        color: root.color
        Accessible.ignored: true
    }

    Text {
        id: domain
        visible: root.at >= 0
        x: local.width
        width: root.width - x
        height: root.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: root.at < 0 ? "" : root.text.slice(root.at)
        font: root.font
        color: root.color
        Accessible.ignored: true
    }
}
