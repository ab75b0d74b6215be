import QtQuick
import Orvella.Design
import Orvella.Inbox

/// What waits, by which rules it was written, and another try at it.
Rectangle {
    id: root

    required property InboxStore store
    required property Conversation conversation
    /// Nothing stands below it.
    property bool folded: false

    height: 42
    radius: Theme.radiusFloat - 1
    color: Theme.accentSubtle

    // Square where the body begins.
    Rectangle {
        visible: !root.folded
        y: parent.height - height
        width: parent.width
        height: parent.radius
        color: parent.color
    }

    OrvIcon {
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        size: 14
        name: "document-edit"
        color: Theme.accentText
    }

    Text {
        id: title
        x: 36
        width: Math.min(implicitWidth, regenerate.x - x - 8)
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.conversation.draftTitle
        font: Theme.bodyBold
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Text {
        x: title.x + title.width + 8
        width: Math.max(0, regenerate.x - x - 8)
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.conversation.draftFacts
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvButton {
        id: regenerate
        visible: root.store.canWrite
        x: parent.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        kind: "ghost"
        text: "Regenerate AI reply"
        iconName: "view-refresh"
        busy: root.store.generating
        onClicked: root.store.act("generate")
    }
}
