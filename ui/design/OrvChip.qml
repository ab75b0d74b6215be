import QtQuick
import Orvella.Design

/// A filter that holds, with its remove button. Del and Backspace remove it.
FocusScope {
    id: root

    property string key: ""
    property string value: ""
    property bool exclusion: false

    signal removed()

    implicitWidth: row.implicitWidth + 8
    implicitHeight: 24
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: (exclusion ? qsTr("Not: ") : "") + key + " " + value
    Accessible.description: qsTr("Remove")
    Accessible.onPressAction: if (root.enabled) root.removed()
    Keys.onDeletePressed: removed()
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace) return;
        event.accepted = true;
        removed();
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusControl
        color: root.exclusion ? Theme.negativeSubtle : Theme.accentSubtle
        FocusRing { visible: root.activeFocus && InputMode.keyboard }
    }
    Row {
        id: row
        leftPadding: 8
        spacing: 4
        height: parent.height
        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: (root.exclusion ? qsTr("Not: ") : "") + root.key
            font: Theme.small
            color: Theme.text2
        }
        Text {
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.value
            font: Theme.smallStrong
            color: Theme.text
        }
        OrvIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: "orv-close"
            size: 12
            color: Theme.text2
            TapHandler { onTapped: root.removed() }
        }
    }
}
