pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Rampup

/// One stage in the editor: its name, kind, days and volumes; or the heads over all of these.
Row {
    id: root

    required property RoadmapEditor editor
    property bool heads: false
    property int number: 0
    property string stageId: ""
    /// The field that breaks the first rule that is broken.
    property string stageWrong: ""
    property var texts: ({})

    readonly property real nameWidth: Math.max(120, width - 24 - 132 - 64 - 2 * 120 - 30 - 6 * spacing)

    height: heads ? 20 : Theme.controlHeight
    spacing: 8

    Head { width: 24; text: root.heads ? "" : root.number.toString() }
    Head { visible: root.heads; width: root.nameWidth; text: "Stage" }
    Head { visible: root.heads; width: 132; text: "Kind" }
    Head { visible: root.heads; width: 64; text: "Days" }
    Head { visible: root.heads; width: 120; text: "Warm-up a day" }
    Head { visible: root.heads; width: 120; text: "Campaign a day" }

    Entry { width: root.nameWidth; field: "name"; says: "name" }

    OrvSelect {
        visible: !root.heads
        width: 132
        hint: "Kind of stage " + root.number
        options: root.editor.kinds
        current: root.texts.key ?? ""
        placeholder: root.texts.key ?? ""
        enabled: !root.editor.busy
        onChosen: key => root.editor.set(root.stageId, "key", key)
    }

    Entry { width: 64; field: "days"; says: "days" }
    Pair { from: "warmupFrom"; to: "warmupTo"; says: "warm-up" }
    Pair { from: "campaignFrom"; to: "campaignTo"; says: "campaign" }

    OrvButton {
        visible: !root.heads
        kind: "ghost"
        iconOnly: true
        iconName: "edit-delete"
        text: "Delete stage " + root.number
        enabled: !root.editor.busy
        onClicked: root.editor.remove(root.stageId)
    }

    component Head: Text {
        height: root.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        font: Theme.smallStrong
        color: Theme.text2
        Accessible.ignored: true
    }

    component Entry: OrvField {
        property string field: ""
        property string says: ""

        visible: !root.heads
        accessibleName: "Stage " + root.number + ", " + says
        text: root.texts[field] ?? ""
        wrong: root.stageWrong === field
        readOnly: root.editor.busy
        onEdited: text => root.editor.set(root.stageId, field, text)
    }

    component Pair: Row {
        property string from: ""
        property string to: ""
        property string says: ""

        visible: !root.heads
        spacing: 4

        Entry { width: 54; field: parent.from; says: parent.says + " from" }
        Head { width: 4; text: "–" }
        Entry { width: 54; field: parent.to; says: parent.says + " to" }
    }
}
