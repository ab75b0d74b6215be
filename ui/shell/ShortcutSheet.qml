import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// Every key the program knows, by where it works.
OnDemand {
    id: root

    required property Router router
    required property Commands commands

    shown: router.shortcutsOpen

    sourceComponent: OrvDrawer {
        id: sheet

        // As it is when it opens: each page has its own.
        property var lines: []

        title: "Shortcuts"
        onAboutToShow: lines = root.commands.sheet()
        onClosed: root.router.shortcutsOpen = false

        // Over the page it keeps the page's own keys away.
        Shortcut {
            sequences: ["?", "Ctrl+/", "Ctrl+Shift+/"]
            autoRepeat: false
            enabled: sheet.modal
            onActivated: sheet.close()
        }

        Column {
            width: parent.width

            Repeater {
                model: sheet.lines

                Item {
                    id: line

                    required property var modelData
                    required property int index
                    readonly property bool first: index === 0 || sheet.lines[index - 1].group !== modelData.group

                    width: parent.width
                    height: 30 + (first ? 34 : 0)

                    Accessible.role: Accessible.StaticText
                    Accessible.name: modelData.title + ", " + modelData.keys.join(" then ")

                    Text {
                        visible: line.first
                        height: 34
                        verticalAlignment: Text.AlignBottom
                        bottomPadding: 6
                        textFormat: Text.PlainText
                        text: line.modelData.group
                        font: Theme.smallStrong
                        color: Theme.text3
                        Accessible.ignored: true
                    }

                    Text {
                        y: parent.height - 30
                        width: caps.x - 12
                        height: 30
                        verticalAlignment: Text.AlignVCenter
                        elide: Text.ElideRight
                        textFormat: Text.PlainText
                        text: line.modelData.title
                        font: Theme.body
                        color: Theme.text
                        Accessible.ignored: true
                    }

                    Row {
                        id: caps
                        x: parent.width - width
                        y: parent.height - 24
                        spacing: 6

                        Repeater {
                            model: line.modelData.keys

                            OrvKeyCap {
                                required property string modelData

                                text: modelData
                            }
                        }
                    }
                }
            }
        }
    }
}
