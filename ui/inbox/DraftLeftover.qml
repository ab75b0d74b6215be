import QtQuick
import Orvella.Design

/// What the person wrote about a draft that was decided without it.
Item {
    id: root

    required property string id
    required property string text

    signal copyRequested()
    signal discardRequested()

    height: 41
    Accessible.role: Accessible.ListItem
    Accessible.name: text

    OrvIcon {
        x: 14
        y: 13
        size: 14
        name: "document-edit"
        color: Theme.text2
    }

    Text {
        x: 36
        width: Math.max(0, copying.x - x - 12)
        height: 40
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.text
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true
    }

    OrvLink {
        id: copying
        x: discarding.x - width - 12
        height: 40
        text: "Copy"
        Accessible.name: "Copy, " + root.text
        onClicked: root.copyRequested()
    }

    OrvLink {
        id: discarding
        x: parent.width - width - 16
        height: 40
        text: "Discard"
        Accessible.name: "Discard, " + root.text
        onClicked: root.discardRequested()
    }

    OrvDivider {
        y: 40
        width: parent.width
    }
}
