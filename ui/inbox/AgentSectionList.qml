pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// Leads to the form's sections; a dot marks those with something unsaved.
FocusScope {
    id: root

    property list<choice> sections
    /// The key of the one that is in view.
    property string current: ""

    signal chosen(string key)

    Accessible.role: Accessible.PageTabList
    Accessible.name: "Sections"

    Column {
        x: 14
        y: 16
        width: parent.width - 28

        Repeater {
            model: root.sections

            T.AbstractButton {
                id: entry

                required property choice modelData
                readonly property bool current: modelData.key === root.current

                width: parent.width
                height: 30
                text: modelData.label
                focusPolicy: Qt.StrongFocus
                activeFocusOnTab: true
                Accessible.role: Accessible.PageTab
                Accessible.name: text + (modelData.ticked ? ", unsaved" : "")
                Accessible.selected: current
                Accessible.onPressAction: clicked()
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
                onClicked: root.chosen(modelData.key)

                background: Rectangle {
                    radius: Theme.radiusControl
                    color: entry.current || entry.down ? Theme.pressed : entry.hovered ? Theme.hover : "transparent"
                    FocusRing { visible: entry.visualFocus }
                }

                contentItem: Text {
                    leftPadding: 10
                    rightPadding: entry.modelData.ticked ? 24 : 4
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    text: entry.text
                    font: entry.current ? Theme.bodyBold : Theme.bodyStrong
                    color: entry.current ? Theme.text : Theme.text2
                    Accessible.ignored: true
                }

                Rectangle {
                    visible: entry.modelData.ticked
                    x: parent.width - 16
                    anchors.verticalCenter: parent.verticalCenter
                    width: 7
                    height: 7
                    radius: 3.5
                    color: Theme.accentText
                }
            }
        }
    }
}
