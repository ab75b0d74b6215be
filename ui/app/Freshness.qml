import QtQuick
import Orvella.Design

/// How long ago something was loaded, in words that grow coarser as it ages.
Text {
    id: root

    /// Invalid while nothing was loaded.
    property date loadedAt
    /// There is no connection: how old it is counts then, not how long ago it came.
    property bool offline: false
    property real now: Date.now()
    readonly property real seconds: (now - loadedAt.getTime()) / 1000

    visible: !isNaN(seconds)
    verticalAlignment: Text.AlignVCenter
    font: Theme.small
    color: Theme.text3
    textFormat: Text.PlainText
    text: {
        if (isNaN(seconds))
            return "";
        const today = new Date(now).toDateString() === loadedAt.toDateString();
        if (offline)
            return "Data from " + Qt.formatDateTime(loadedAt, today ? "HH:mm" : "d MMM, HH:mm");
        const minutes = Math.floor(seconds / 60);
        if (minutes < 1)
            return "Updated just now";
        if (minutes < 60)
            return "Updated " + minutes + " min ago";
        return "Updated at " + Qt.formatTime(loadedAt, "HH:mm");
    }
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    onLoadedAtChanged: now = Date.now()

    Timer {
        interval: 20000
        running: root.visible && Window.active
        repeat: true
        triggeredOnStart: true
        onTriggered: root.now = Date.now()
    }
}
