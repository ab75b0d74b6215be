import QtQuick
import Orvella.Design
import Orvella.App

/// Says that something unsaved came back from an earlier run or session, and takes it away again if that is wanted.
Item {
    id: root

    required property Recovery recovery

    visible: recovery.notice !== ""
    implicitHeight: notice.height

    OrvNotice {
        id: notice
        width: root.width - discard.width - 8
        text: root.recovery.notice
    }

    OrvButton {
        id: discard
        x: root.width - width
        y: Math.round((notice.height - height) / 2)
        text: "Discard"
        onClicked: root.recovery.discard()
    }
}
