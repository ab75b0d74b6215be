import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// What happened with a lead in its campaign.
Column {
    id: root

    required property LeadPanel panel
    readonly property Resource detail: panel.detail
    readonly property bool failed: !panel.detailed && (detail.state === Resource.Error || detail.state === Resource.Offline)

    spacing: 12

    Text {
        textFormat: Text.PlainText
        text: "Activity"
        font: Theme.bodyBold
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Text {
        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: {
            if (root.failed)
                return "Couldn’t load the activity. " + root.detail.message;
            if (!root.panel.detailed)
                return "Loading…";
            return root.panel.activity.length === 0 ? "Nothing yet." : "";
        }
        font: Theme.body
        color: root.failed ? Theme.negative : Theme.text3
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvButton {
        visible: root.failed
        text: "Try again"
        onClicked: root.panel.refresh()
    }

    Repeater {
        model: root.panel.activity

        Item {
            id: line

            required property var modelData

            width: root.width
            height: 20 + (about.visible ? about.implicitHeight : 0)

            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.title + ", " + modelData.when + (modelData.text === "" ? "" : ", " + modelData.text)

            Text {
                width: when.x - 8
                height: 20
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                textFormat: Text.PlainText
                text: line.modelData.title
                font: Theme.bodyStrong
                color: Theme.text
                Accessible.ignored: true
            }

            Text {
                id: when
                anchors.right: parent.right
                height: 20
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: line.modelData.when
                font: Theme.small
                color: Theme.text3
                Accessible.ignored: true
            }

            Text {
                id: about
                visible: text !== ""
                y: 20
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: line.modelData.text
                font: Theme.small
                color: Theme.text2
                Accessible.ignored: true
            }
        }
    }
}
