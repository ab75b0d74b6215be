import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// One of a campaign's settings that is on or off.
Item {
    id: root

    required property CampaignSettings form
    required property string field
    property alias text: box.text
    property string help: ""

    implicitHeight: box.height + (hint.visible ? hint.implicitHeight : 0)

    OrvCheckbox {
        id: box
        checked: root.form.draft.values[root.field] ?? false
        Accessible.description: root.help
        onToggled: root.form.draft.set(root.field, checked)
    }

    Text {
        id: hint
        visible: root.help !== ""
        x: 24
        y: box.height - 2
        width: parent.width - x
        textFormat: Text.PlainText
        text: root.help
        font: Theme.small
        color: Theme.text3
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
