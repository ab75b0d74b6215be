import QtQuick
import Orvella.Design

/// Buttons and links, in each kind, size and state.
Rectangle {
    id: root

    color: Theme.surface

    Column {
        x: 24
        y: 24
        spacing: 16

        Repeater {
            model: ["primary", "secondary", "ghost", "danger"]

            Row {
                id: line

                required property string modelData

                spacing: 12

                OrvButton { kind: line.modelData; text: "Save" }
                OrvButton { kind: line.modelData; text: "New campaign"; iconName: "list-add"; keys: "N" }
                OrvButton { kind: line.modelData; text: "Archived"; iconName: "archive-insert"; count: 6 }
                OrvButton { kind: line.modelData; text: "Tags"; iconName: "tag"; menuArrow: true }
                OrvButton { kind: line.modelData; text: "Saving"; busy: true }
                OrvButton { kind: line.modelData; text: "Off"; enabled: false; hint: "Only members can create campaigns." }
                OrvButton { kind: line.modelData; text: "Small"; size: "small"; iconName: "edit-undo" }
                OrvButton { kind: line.modelData; text: "Refresh"; iconOnly: true; iconName: "view-refresh" }
            }
        }

        OrvButton { width: 348; kind: "primary"; size: "large"; text: "Sign in" }
        OrvButton { width: 348; size: "large"; text: "Continue with Google"; iconName: "internet-services" }
        OrvButton { id: focused; text: "With the keyboard’s focus" }

        Row {
            spacing: 24

            OrvLink { text: "Use a different email" }
            OrvLink { text: "Resend in 24"; enabled: false }
        }
    }

    Component.onCompleted: focused.forceActiveFocus(Qt.TabFocusReason)
}
