import QtQuick
import Orvella.Design
import Orvella.Inbox

/// The draft as it is to be sent: in which style, to whom, and its text, which is edited in place.
FocusScope {
    id: root

    required property InboxStore store
    required property DraftsStore drafts

    function take() {
        (editor.item as Composer)?.take();
    }

    Connections {
        target: root.drafts

        function onEditRequested() {
            root.take();
        }
    }

    Text {
        id: title
        width: parent.width - (styles.y === 0 ? styles.width + 16 : 0)
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.drafts.headline
        font: Theme.paneTitle
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Text {
        y: 24
        width: title.width
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.drafts.facts
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvSegments {
        id: styles
        x: y === 0 ? parent.width - width : 0
        y: width + 260 > parent.width ? 46 : 0
        enabled: root.store.canWrite && !root.drafts.styling
        label: "Style"
        options: root.drafts.styles
        current: root.drafts.style
        onChosen: key => root.drafts.chooseStyle(key)
    }

    OrvBusyRing {
        visible: root.drafts.styling
        x: styles.x - width - 10
        y: styles.y + 8
    }

    OrvNotice {
        id: held
        y: Math.max(52, styles.y + styles.height + 8)
        width: parent.width
        visible: text !== ""
        text: Array.from(root.drafts.failures).join("\n")
    }

    Rectangle {
        y: held.y + (held.visible ? held.height + 8 : 0)
        width: parent.width
        height: Math.max(0, parent.height - y)
        radius: Theme.radiusFloat
        color: Theme.raised
        border { width: 1; color: Theme.borderField }

        Accessible.role: Accessible.Grouping
        Accessible.name: "Draft"

        DraftEnvelope {
            id: lines
            x: 16
            width: parent.width - 2 * x
            drafts: root.drafts
        }

        Loader {
            id: editor
            x: 16
            y: lines.height + 12
            width: parent.width - 2 * x
            height: Math.max(0, foot.y - y - 4)
            focus: true
            active: root.drafts.writing !== null
            sourceComponent: Composer {
                writing: root.drafts.writing
                label: "Draft"
                editable: root.store.canWrite
                onSendRequested: root.store.act("approve")
                onLeaveRequested: skip.forceActiveFocus(Qt.OtherFocusReason)
            }
        }

        Item {
            id: foot
            x: 1
            y: parent.height - height
            width: parent.width - 2
            height: 51

            OrvDivider {
                width: parent.width
            }

            OrvButton {
                id: revert
                visible: root.drafts.edited
                x: 7
                anchors.verticalCenter: parent.verticalCenter
                kind: "ghost"
                text: "Discard your edit"
                iconName: "edit-undo"
                onClicked: root.drafts.writing?.discard()
            }

            Text {
                visible: !revert.visible
                x: 15
                width: buttons.x - x - 8
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: root.store.canWrite ? "Click the text to edit it" : "Only members can decide about drafts."
                font: Theme.small
                color: Theme.text3
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            Row {
                id: buttons
                x: parent.width - width - 11
                anchors.verticalCenter: parent.verticalCenter
                spacing: 8

                OrvButton {
                    id: skip
                    text: "Skip"
                    keys: "X"
                    enabled: root.store.canWrite
                    onClicked: root.store.act("skip")
                }

                OrvButton {
                    kind: "primary"
                    text: root.drafts.approveText
                    keys: root.drafts.edited ? "" : "Ctrl ↵"
                    enabled: root.drafts.canApprove
                    onClicked: root.store.act("approve")
                }
            }
        }
    }
}
