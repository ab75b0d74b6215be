import QtQuick
import Orvella.Design

/// An account's address; below it who it is, or why it does not work.
OrvCell {
    id: root

    property string address: ""
    property string name: ""
    property string problem: ""
    property list<string> tags: []
    readonly property real tagRoom: tagRow.visible ? tagRow.width + 8 : 0

    label: [address, problem === "" ? name : problem, ...(tags ?? [])].filter(said => said !== "").join(", ")
    naturalWidth: Math.max(addressText.implicitWidth, detailText.implicitWidth + tagRoom)

    OrvAddress {
        id: addressText
        y: root.height / 2 - 18
        width: root.width
        height: 20
        text: root.address
        font: Theme.bodyStrong
    }

    Text {
        id: detailText
        y: root.height / 2 + 2
        width: Math.min(implicitWidth, root.width - root.tagRoom)
        height: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.problem === "" ? root.name : root.problem
        font: Theme.small
        color: root.problem === "" ? Theme.text2 : Theme.negative
        Accessible.ignored: true
    }

    Row {
        id: tagRow
        visible: root.problem === "" && (root.tags?.length ?? 0) > 0
        x: detailText.width + 6
        y: detailText.y - 1
        spacing: 6

        Repeater {
            // By number, so that a row which comes to stand for another account keeps its tags' items.
            model: Math.min(3, root.tags?.length ?? 0)

            OrvTag {
                required property int index

                text: root.tags?.[index] ?? ""
            }
        }
    }
}
