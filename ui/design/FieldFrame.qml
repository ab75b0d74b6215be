pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// What every field has around what is typed into: label above, border and halo, help or error below.
FocusScope {
    id: root

    property string label: ""
    property string help: ""
    property string error: ""
    /// Marked as wrong. What is wrong may be said elsewhere.
    property bool wrong: error !== ""
    /// What is typed into has the caret.
    property bool caret: false
    /// It can be copied, and is not the person's to change.
    property bool readOnly: false
    property real frameHeight: Theme.controlHeight
    /// What the field's description says: its error or else its help.
    readonly property string note: error !== "" ? error : help
    default property alias content: frame.data

    // Whoever comes to the field hears it there.
    onErrorChanged: {
        if (error !== "" && activeFocus)
            Announcer.say(error, "error");
    }

    implicitWidth: 208
    implicitHeight: frame.y + frame.height + (notes.visible ? notes.implicitHeight + 6 : 0)

    Text {
        visible: root.label !== ""
        textFormat: Text.PlainText
        text: root.label
        font: Theme.smallStrong
        color: Theme.text2
        Accessible.ignored: true
    }

    Rectangle {
        id: frame
        y: root.label !== "" ? 22 : 0
        width: parent.width
        height: root.frameHeight
        radius: Theme.radiusControl
        color: root.readOnly ? Theme.hover : Theme.surface
        opacity: root.enabled ? 1 : 0.6
        border.width: 1
        border.color: root.wrong ? Theme.negative : root.caret ? Theme.focus : root.readOnly ? Theme.border : Theme.borderField

        Rectangle {
            visible: root.caret
            anchors.fill: parent
            anchors.margins: -2
            radius: parent.radius + 2
            color: "transparent"
            border.width: 2
            border.color: Theme.focusHalo
        }
    }

    Row {
        id: notes
        readonly property bool failed: root.error !== ""
        visible: root.note !== ""
        y: frame.y + frame.height + 6
        width: parent.width
        spacing: 8
        OrvIcon {
            visible: notes.failed
            name: "data-error"
            size: 14
            color: Theme.negative
        }
        Text {
            width: parent.width - (notes.failed ? 22 : 0)
            textFormat: Text.PlainText
            text: root.note
            font: Theme.small
            color: notes.failed ? Theme.negative : Theme.text3
            wrapMode: Text.Wrap
            Accessible.role: notes.failed ? Accessible.AlertMessage : Accessible.StaticText
            Accessible.name: text
        }
    }
}
