import QtQuick
import Orvella.Design

/// Tells somebody who listens what has gone wrong as its words appear or change, for nothing leads a screen reader
/// there. Not what a page is made or shown with.
QtObject {
    id: root

    /// What shows the words.
    required property Item shownBy
    required property string text

    // As it was until now: whoever is shown or hidden tells of it after all that is inside.
    readonly property bool wasAround: shownBy.parent?.visible ?? false
    property bool made: false

    signal appeared()

    onTextChanged: tellLater()

    function tellLater() {
        if (made && wasAround && shownBy.visible)
            later.restart();
    }

    readonly property Connections follower: Connections {
        target: root.shownBy

        function onVisibleChanged() {
            root.tellLater();
        }
    }

    // The words may be others once everything that has changed is known.
    readonly property Timer later: Timer {
        interval: 0
        onTriggered: {
            if (!root.shownBy.visible || root.text === "")
                return;
            Announcer.say(root.text, "error");
            root.appeared();
        }
    }

    Component.onCompleted: made = true
}
