import QtQuick

/// A paragraph of an OrvDialog; takes no room while it is empty.
Text {
    visible: text !== ""
    width: parent ? parent.width : implicitWidth
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    lineHeightMode: Text.FixedHeight
    lineHeight: 21
    font: Theme.body
    color: Theme.text2

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
