import QtQuick

/// A cell with a record's name and, below it, a line about it where there is one. Children (tags) stand after the name.
OrvCell {
    id: root

    property string title: ""
    property string detail: ""
    property color detailColor: Theme.text2
    default property alias tags: tagRow.data
    /// What those say.
    property string tagsSaid: ""

    label: title + (detail === "" ? "" : ", " + detail) + (tagsSaid === "" ? "" : ", " + tagsSaid)
    naturalWidth: Math.max(titleText.implicitWidth + (tagRow.visible ? tagRow.width + 8 : 0), detailText.implicitWidth)

    OrvAddress {
        id: titleText
        y: root.detail === "" ? Math.round(root.height / 2) - 10 : root.height / 2 - 18
        width: Math.min(implicitWidth, root.width - (tagRow.visible ? tagRow.width + 8 : 0))
        height: 20
        text: root.title
        font: Theme.bodyStrong
    }

    Row {
        id: tagRow
        visible: children.length > 0
        x: titleText.width + 8
        y: titleText.y + 1
        spacing: 8
    }

    Text {
        id: detailText
        y: root.height / 2 + 2
        width: root.width
        height: 16
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.detail
        font: Theme.small
        color: root.detailColor
        Accessible.ignored: true
    }
}
