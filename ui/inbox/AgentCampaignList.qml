pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// Campaigns on which the agent works, or on which it does not.
Column {
    id: root

    property string title: ""
    property bool active: false
    property int count: 0
    property alias model: list.model
    property string emptyText: ""
    property bool editable: true
    readonly property string verb: active ? "Make inactive" : "Make active"

    signal moved(string id)

    Row {
        height: 32
        spacing: 8

        Text {
            anchors.verticalCenter: parent.verticalCenter
            textFormat: Text.PlainText
            text: root.title
            font: Theme.smallStrong
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text + ", " + root.count
        }

        OrvCount {
            anchors.verticalCenter: parent.verticalCenter
            value: root.count
        }
    }

    OrvDivider {
        width: parent.width
    }

    ListView {
        id: list
        width: parent.width
        height: Math.min(contentHeight, 36 * 12)
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        // By itself it would go with `interactive`: off where nothing needs to scroll.
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        activeFocusOnTab: count > 0
        Accessible.role: Accessible.List
        Accessible.name: root.title + " campaigns"
        // The one that stands for campaigns to come cannot be moved.
        onActiveFocusChanged: {
            for (let row = currentIndex; activeFocus && row < count; ++row) {
                if ((itemAtIndex(row) as AgentCampaignRow)?.verb) {
                    currentIndex = row;
                    return;
                }
            }
        }
        Keys.onReturnPressed: (currentItem as AgentCampaignRow)?.press()
        Keys.onEnterPressed: (currentItem as AgentCampaignRow)?.press()
        Keys.onSpacePressed: (currentItem as AgentCampaignRow)?.press()

        T.ScrollBar.vertical: OrvScrollBar {}

        delegate: AgentCampaignRow {
            width: list.width
            active: root.active
            verb: root.editable && id !== "" ? root.verb : ""
            current: list.activeFocus && ListView.isCurrentItem
            onMoved: root.moved(id)
        }
    }

    Text {
        visible: root.count === 0
        width: parent.width
        topPadding: 10
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: root.emptyText
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
