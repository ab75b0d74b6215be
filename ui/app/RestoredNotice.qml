import QtQuick
import Orvella.Design
import Orvella.App

/// Says that something unsaved came back from an earlier run or session, and takes it away again if that is wanted.
Item {
    id: root

    /// None where nothing is kept.
    required property Recovery recovery
    readonly property string said: recovery !== null ? recovery.notice : ""

    visible: said !== ""
    implicitHeight: notice.height

    OrvNotice {
        id: notice
        width: root.width - discard.width - 8
        shownBy: root
        text: root.said
    }

    OrvButton {
        id: discard
        x: root.width - width
        y: Math.round((notice.height - height) / 2)
        text: "Discard"
        onClicked: root.recovery.discard()
    }
}
