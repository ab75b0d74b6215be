import QtQuick
import Orvella.Design
import Orvella.Settings

/// What the desktop tells of on this computer.
SettingsPane {
    id: root

    summary: "What the desktop tells you of, on this computer."

    OrvForm {
        anchors.fill: parent
        focus: true

        OrvNotice {
            visible: text !== ""
            width: parent.width
            text: root.store.program.notificationTrouble
        }

        SwitchLine {
            width: parent.width
            text: "Positive replies"
            help: "When somebody answers with interest."
            checked: root.store.positiveReplies
            onToggled: on => root.store.positiveReplies = on
        }

        SwitchLine {
            width: parent.width
            text: "Account errors"
            help: "When an email account stops working."
            checked: root.store.accountErrors
            onToggled: on => root.store.accountErrors = on
        }
    }
}
