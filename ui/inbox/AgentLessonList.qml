import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The rules that the agent has learned or was given.
FocusScope {
    id: root

    required property InboxStore store
    required property AgentSettingsStore agent

    Text {
        x: 20
        y: 14
        textFormat: Text.PlainText
        text: "What your AI has learned"
        font: Theme.bodyBold
        color: Theme.text
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    OrvButton {
        x: parent.width - width - 20
        y: 8
        visible: root.agent.canWrite
        text: "Add"
        iconName: "list-add"
        Accessible.name: "Add a rule"
        onClicked: root.store.act("new")
    }

    Text {
        id: help
        x: 20
        y: 42
        width: parent.width - 40
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: "Style only. Prices, results and links go in the knowledge base."
        font: Theme.small
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ActionMenu {
        id: menu
        store: root.agent
        title: "Rule"
    }

    ResourceView {
        y: help.y + help.height + 10
        width: parent.width
        height: parent.height - y
        resource: root.agent.lessons.list
        emptyTitle: "Nothing yet"
        emptyText: "Each draft you edit or skip teaches your AI a rule, and it lands here."
        errorTitle: "Couldn’t load what your AI has learned"
        onRetryRequested: root.agent.refresh()

        ListView {
            id: list
            anchors.fill: parent
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.agent.lessons.rows
            activeFocusOnTab: count > 0
            highlightMoveDuration: 0
            Accessible.role: Accessible.List
            Accessible.name: "What your AI has learned"
            Keys.onReturnPressed: (currentItem as AgentLesson)?.press()
            Keys.onEnterPressed: (currentItem as AgentLesson)?.press()
            Keys.onSpacePressed: (currentItem as AgentLesson)?.press()

            T.ScrollBar.vertical: OrvScrollBar {}
            RowFocus { target: list }

            delegate: AgentLesson {
                required property int index

                width: list.width
                current: list.activeFocus && ListView.isCurrentItem
                onMenuRequested: (button) => menu.openFor(id, button, 0, button.height)
                onReached: list.currentIndex = index
            }
        }
    }
}
