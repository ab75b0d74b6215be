import QtQuick
import Orvella.Design

/// Takes a file, chosen in the desktop's panel or dropped on it, and says which one that is.
Item {
    id: root

    property string name: ""
    property string facts: ""
    /// The file is being looked into.
    property bool looking: false
    /// Of the place to drop a file on, before there is one.
    property real emptyHeight: 64
    readonly property bool empty: name === ""
    readonly property bool over: drop.containsDrag
    readonly property alias button: choose

    signal chooseRequested()
    signal dropped(url file)

    implicitHeight: empty ? emptyHeight : 44

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusControl
        color: root.over ? Theme.selected : root.empty ? "transparent" : Theme.bg
    }

    DashedFrame {
        anchors.fill: parent
        visible: root.empty || root.over
        ink: root.over ? Theme.accentText : Theme.borderField
    }

    DropArea {
        id: drop
        anchors.fill: parent
        enabled: root.enabled
        onDropped: event => {
            if (event.hasUrls)
                root.dropped(event.urls[0]);
        }
    }

    OrvIcon {
        id: icon
        x: root.empty ? Math.round((root.width - words.implicitWidth - 24) / 2) : 14
        anchors.verticalCenter: words.verticalCenter
        name: "document-import"
        size: 16
        color: Theme.text2
    }

    Text {
        id: words
        readonly property string said: root.empty ? "Drop a CSV file here" : root.name

        x: icon.x + 24
        y: root.empty ? Math.round(root.height / 2) - (root.emptyHeight > 100 ? 30 : 10) : 12
        width: Math.min(implicitWidth, choose.x - x - 12 - (factsText.visible ? factsText.implicitWidth + 8 : 0))
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        textFormat: Text.PlainText
        text: said
        font: root.empty ? Theme.body : Theme.bodyStrong
        color: root.empty ? Theme.text2 : Theme.text
        Accessible.role: Accessible.StaticText
        Accessible.name: root.facts === "" ? said : said + ", " + root.facts
    }

    Text {
        id: factsText
        visible: !root.empty && root.facts !== ""
        x: words.x + words.width + 8
        y: words.y
        height: 20
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.facts
        font: Theme.body
        color: Theme.text2
        Accessible.ignored: true
    }

    OrvButton {
        id: choose
        x: root.empty && root.emptyHeight > 100 ? Math.round((root.width - width) / 2) : root.width - width - (root.empty ? 16 : 8)
        y: root.empty && root.emptyHeight > 100 ? words.y + 32 : Math.round((root.height - height) / 2)
        kind: root.empty ? "secondary" : "ghost"
        text: root.empty ? "Choose file" : "Choose another file"
        busy: root.looking
        onClicked: root.chooseRequested()
    }
}
