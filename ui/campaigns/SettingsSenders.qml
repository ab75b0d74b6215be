pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Which mailboxes send for a campaign: those ticked, and those that join by a tag.
SettingsSection {
    id: root

    required property SenderPicker picker
    readonly property bool failed: picker.mailboxes.state === Resource.Error || picker.mailboxes.state === Resource.Offline
        || picker.mailboxes.moreFailed

    key: "senders"
    title: "Senders"
    help: "Sends spread evenly across the ticked inboxes. An inbox with one of the tags below joins on its own, now and when it is added later."

    OrvSkeleton {
        visible: root.picker.mailboxes.state === Resource.Loading && root.picker.total === 0
        width: parent.width
        height: 132
    }

    SenderList {
        visible: root.picker.total > 0
        width: parent.width
        picker: root.picker
    }

    Text {
        visible: root.picker.total > 0
        textFormat: Text.PlainText
        text: root.picker.summary
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    FormNote {
        width: parent.width
        text: root.picker.note
        failed: root.failed
        onRetryRequested: root.picker.refresh()
    }

    Column {
        width: parent.width
        spacing: 6

        Text {
            textFormat: Text.PlainText
            text: "Sender tags"
            font: Theme.smallStrong
            color: Theme.text2
            Accessible.ignored: true
        }

        Flow {
            width: parent.width
            spacing: 16
            Accessible.role: Accessible.Grouping
            Accessible.name: "Sender tags"

            Repeater {
                // By number, so that a box which was just ticked keeps the focus.
                model: root.picker.tags.length

                OrvCheckbox {
                    required property int index
                    readonly property choice tag: root.picker.tags[index] ?? ({key: "", count: 0, ticked: false})

                    text: tag.key + " · " + tag.count
                    checked: tag.ticked
                    onToggled: root.picker.toggleTag(tag.key)
                }
            }
        }

        Text {
            width: parent.width
            textFormat: Text.PlainText
            text: root.picker.tagNote || "Every inbox with one of these tags sends for this campaign."
            font: Theme.small
            color: Theme.text3
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
