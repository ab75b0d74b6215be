import QtQuick
import Orvella.Design

/// One column of the file: its name, what is in it, and what it becomes.
Item {
    id: root

    required property int index
    required property string name
    required property string samples
    required property string target
    required property bool isField
    property list<choice> targets

    signal chosen(int row, string target)

    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + sample.text

    Text {
        width: 156
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        text: root.name
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }

    OrvIcon {
        id: mark
        visible: root.samples === ""
        x: 168
        anchors.verticalCenter: parent.verticalCenter
        name: "data-warning"
        size: 14
        color: Theme.warning
    }

    Text {
        id: sample
        x: 168 + (mark.visible ? 20 : 0)
        width: target.x - x - 16
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        text: root.samples === "" ? "empty in the first rows" : root.samples
        font: Theme.body
        color: root.samples === "" ? Theme.warning : Theme.text2
        Accessible.ignored: true
    }

    OrvSelect {
        id: target
        x: parent.width - width
        anchors.verticalCenter: parent.verticalCenter
        width: 220
        hint: root.name + ", import as"
        keepsIconRoom: true
        iconName: root.isField ? "checkmark" : ""
        iconColor: Theme.positive
        valueColor: root.isField ? Theme.text : Theme.text2
        options: root.targets
        current: root.target
        onChosen: key => root.chosen(root.index, key)
    }

    OrvDivider {
        y: root.height - 1
        width: root.width
    }
}
