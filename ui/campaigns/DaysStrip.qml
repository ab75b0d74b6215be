import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// The next fourteen days of the lead that the preview is for: each email on the day on which it is likely to go out.
/// Left and Right move between the emails; a drag changes the wait.
FocusScope {
    id: root

    required property SequenceEditor editor
    property bool canWrite: true
    property real headWidth: 264

    /// The person wants to write in the email that is shown.
    signal writeRequested()

    readonly property SequenceDays days: editor.days

    DaysColumns {
        id: grid
        width: root.width
        headWidth: root.headWidth
    }

    /// Which email Tab comes to: the one that is shown, if it has a day here.
    function stop(): int {
        for (let i = 0; i < emails.count; ++i)
            if ((emails.itemAt(i) as DaysEmail)?.current)
                return i;
        return 0;
    }

    function go(index: int) {
        const email = emails.itemAt(Math.max(0, Math.min(emails.count - 1, index))) as DaysEmail;
        if (!email)
            return;
        editor.selectPlace(email.place);
        email.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: 77

    Component.onCompleted: days.watched = true
    Component.onDestruction: days.watched = false

    Accessible.role: Accessible.List
    Accessible.name: "Next 14 days. " + days.whose + ". " + days.note

    Shortcut {
        sequence: "Alt+Shift+Left"
        enabled: root.canWrite
        onActivated: root.days.addToWait(root.editor.place, -1)
    }

    Shortcut {
        sequence: "Alt+Shift+Right"
        enabled: root.canWrite
        onActivated: root.days.addToWait(root.editor.place, 1)
    }

    Rectangle {
        width: root.headWidth
        height: parent.height
        color: Theme.bg
    }

    Column {
        x: 16
        y: 10
        width: root.headWidth - 24

        Repeater {
            model: ["Next 14 days", root.days.whose, root.days.note]

            Text {
                required property string modelData
                required property int index

                width: parent.width
                height: 18
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: modelData
                font: index === 0 ? Theme.bodyBold : Theme.small
                color: index === 0 ? Theme.text : Theme.text2
                Accessible.ignored: true

                OrvTooltip {
                    text: parent.truncated ? parent.text : ""
                }
            }
        }
    }

    Repeater {
        model: root.days.days

        Item {
            id: day

            required property string title
            required property bool sends
            required property int index

            x: grid.columnX(index)
            width: grid.widthOf(index)
            height: root.height - 1

            Loader {
                active: !day.sends
                anchors.fill: parent
                sourceComponent: Hatching {}
            }

            Rectangle {
                width: 1
                height: parent.height
                color: Theme.border
            }

            Text {
                x: 2
                y: 8
                width: parent.width - 3
                height: 16
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: day.title
                font: day.index === 0 ? Theme.smallStrong : Theme.small
                color: day.index === 0 ? Theme.accentText : Theme.text2
                Accessible.ignored: true
            }
        }
    }

    Repeater {
        id: emails
        model: root.days.emails

        DaysEmail {
            columns: grid
            days: root.days
            tabStop: root.stop() === index
            onChosen: root.go(index)
            onStepRequested: by => root.go(index + by)
            onWriteRequested: {
                root.editor.selectPlace(place);
                root.writeRequested();
            }
        }
    }

    Text {
        visible: text !== ""
        x: grid.columnX(13) + 2
        y: 60
        width: grid.widthOf(13) - 4
        height: 16
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.days.laterText
        font: Theme.microText
        color: Theme.text2
        Accessible.role: Accessible.ListItem
        Accessible.name: text + ": " + root.days.laterWords

        OrvTooltip {
            text: root.days.laterWords
        }
    }

    OrvDivider {
        y: root.height - 1
        width: root.width
    }
}
