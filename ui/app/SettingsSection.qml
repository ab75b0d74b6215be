import QtQuick
import Orvella.Design

/// A group of settings under its heading.
Column {
    id: root

    /// By which a list of sections leads to it.
    property string key: ""
    property string title: ""
    property string help: ""

    spacing: 16

    Column {
        width: parent.width
        spacing: 4

        Text {
            textFormat: Text.PlainText
            text: root.title
            font: Theme.paneTitle
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Text {
            visible: root.help !== ""
            width: parent.width
            textFormat: Text.PlainText
            text: root.help
            font: Theme.body
            color: Theme.text2
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
