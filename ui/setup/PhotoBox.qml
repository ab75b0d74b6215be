import QtQuick
import Orvella.Design
import Orvella.Setup

/// The photo of a project's inboxes: chosen, dropped on it, or taken away.
Item {
    id: root

    required property SetupPhoto photo

    implicitHeight: 64

    Rectangle {
        id: place
        width: 64
        height: 64
        radius: 32
        color: drop.containsDrag ? Theme.selected : Theme.pressed

        OrvIcon {
            anchors.centerIn: parent
            visible: picture.status !== Image.Ready
            name: "system-users"
            size: 24
            color: Theme.text3
        }

        Image {
            id: picture
            anchors.fill: parent
            source: root.photo.source
            sourceSize { width: 128; height: 128 }
            fillMode: Image.PreserveAspectCrop
            Accessible.ignored: true
        }
    }

    // The corners of a picture that is shown round; the software renderer has no masks.
    Canvas {
        id: corners

        readonly property color ink: Theme.surface

        anchors.fill: place
        visible: picture.status === Image.Ready
        onInkChanged: requestPaint()
        onPaint: {
            const pen = getContext("2d");
            pen.clearRect(0, 0, width, height);
            pen.fillStyle = ink;
            pen.beginPath();
            pen.rect(0, 0, width, height);
            pen.arc(width / 2, height / 2, width / 2, 0, 2 * Math.PI, true);
            pen.fill();
        }
    }

    Text {
        x: 80
        y: 12
        textFormat: Text.PlainText
        text: "Profile photo"
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.role: Accessible.StaticText
        Accessible.name: text + (root.photo.stored ? ", stored" : ", none")
    }

    Text {
        x: 80
        y: 32
        width: actions.x - x - 12
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: "JPEG or PNG, 1 MB at most. Set on every inbox’s Google profile."
        font: Theme.small
        color: Theme.text3
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Row {
        id: actions
        x: root.width - width
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        OrvButton {
            text: root.photo.stored ? "Replace" : "Choose photo"
            busy: root.photo.busy
            onClicked: root.photo.choose()
        }

        OrvButton {
            visible: root.photo.stored
            kind: "ghost"
            text: "Remove"
            enabled: !root.photo.busy
            onClicked: root.photo.remove()
        }
    }

    DropArea {
        id: drop
        anchors.fill: parent
        enabled: root.enabled
        onDropped: event => {
            if (event.hasUrls)
                root.photo.take(event.urls[0]);
        }
    }
}
