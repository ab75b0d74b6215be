pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design

/// Leads to the form's sections; a dot marks those with something unsaved.
FocusScope {
    id: root

    property list<choice> sections

    signal chosen(string key)

    Column {
        x: 14
        y: 16
        width: parent.width - 28

        Repeater {
            model: root.sections

            OrvButton {
                id: entry

                required property choice modelData

                width: parent.width
                kind: "ghost"
                text: modelData.label
                Accessible.name: modelData.label + (modelData.ticked ? ", unsaved" : "")
                onClicked: root.chosen(modelData.key)

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
