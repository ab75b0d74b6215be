import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Settings

/// The person: who they are here, how the program looks to them, and where they are signed in.
SettingsPane {
    id: root

    readonly property Program program: store.program

    summary: "Who you are in every workspace, and how Orvella looks to you."

    OrvForm {
        anchors.fill: parent
        focus: true

        Row {
            spacing: 12

            OrvAvatar {
                size: 40
                name: root.program.userName
            }

            Column {
                Text {
                    textFormat: Text.PlainText
                    text: root.program.userName
                    font: Theme.bodyBold
                    color: Theme.text
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }

                Text {
                    textFormat: Text.PlainText
                    text: root.program.userEmail
                    font: Theme.body
                    color: Theme.text2
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
        }

        SettingsSection {
            width: parent.width
            title: "Appearance"

            OrvSegments {
                focus: true
                label: "Appearance"
                options: root.store.themes
                current: root.program.theme
                onChosen: key => root.program.theme = key
            }
        }

        SettingsSection {
            width: parent.width
            title: "Devices"
            help: "You’re signed in on this computer. Sign-ins on other computers end there, or in the web app."

            Text {
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: root.program.device
                font: Theme.body
                color: Theme.text
                Accessible.role: Accessible.StaticText
                Accessible.name: "This computer, " + text
            }

            OrvButton {
                text: "Sign out"
                onClicked: root.program.signOut()
            }
        }

        SettingsSection {
            width: parent.width
            title: "Orvella " + root.program.version
            help: root.program.newVersion === "" ? "" : "Orvella " + root.program.newVersion + " is out."

            Row {
                spacing: 8

                OrvButton {
                    visible: root.program.newVersionOpens
                    kind: "primary"
                    text: "Get " + root.program.newVersion
                    onClicked: root.program.openNewVersion()
                }

                OrvButton {
                    text: "What’s new"
                    onClicked: root.program.showChangelog()
                }

                OrvButton {
                    text: "Log"
                    onClicked: root.program.showLog()
                }
            }
        }
    }
}
