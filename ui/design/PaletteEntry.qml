import QtQuick
import Orvella.Design

/// One entry of the command palette.
Item {
    id: root

    required property var model
    required property int index
    readonly property string title: model.title
    /// There is something that can be done with it.
    readonly property bool hasMore: model.hasMore ?? false
    property bool current: false
    readonly property list<string> keys: (model.chord ?? "").split(" ").filter(key => key !== "")

    /// The pointer moved over it; a palette that opens under a resting pointer keeps its first entry.
    signal pointed()
    signal pressed()

    height: 38

    Accessible.role: Accessible.ListItem
    Accessible.name: model.subtitle ? title + ", " + model.subtitle : title
    Accessible.description: [...keys].join(" then ")
    Accessible.selectable: true
    Accessible.selected: current
    Accessible.onPressAction: pressed()

    Rectangle {
        anchors { fill: parent; leftMargin: 9; rightMargin: 9 }
        radius: Theme.radiusControl
        color: root.current ? Theme.selected : "transparent"
    }

    OrvIcon {
        x: 21
        anchors.verticalCenter: parent.verticalCenter
        size: 16
        name: root.model.iconName ?? ""
        color: root.current ? Theme.accentText : Theme.text2
    }

    Text {
        id: label
        x: 49
        width: Math.min(implicitWidth, root.width * 0.55)
        height: root.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.title
        font: Theme.bodyStrong
        color: Theme.text
        Accessible.ignored: true
    }

    Text {
        x: label.x + label.width + 12
        width: caps.x - x - 12
        height: root.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.model.subtitle ?? ""
        font: Theme.body
        color: Theme.text3
        Accessible.ignored: true
    }

    Row {
        id: caps
        x: root.width - width - 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12

        Repeater {
            model: root.keys

            OrvKeyCap {
                required property string modelData

                text: modelData
            }
        }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onPositionChanged: root.pointed()
        onClicked: root.pressed()
    }
}
