import QtQuick
import Orvella.Design
import Orvella.Shell

/// Where a person's password goes, when that is another service than everybody's.
Column {
    id: root

    required property SignInModel model

    visible: model.service !== ""
    topPadding: 8
    spacing: 8

    Text {
        width: root.width
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: "on " + root.model.service
        font: Theme.reading
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvNotice {
        visible: text !== ""
        width: root.width
        tone: "negative"
        text: root.model.serviceTrouble
    }
}
