import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// The reply agent: what it may do, what it is told, and beside that what it has learned.
FocusScope {
    id: root

    required property InboxStore store
    readonly property AgentSettingsStore agent: store.agent as AgentSettingsStore
    readonly property bool narrow: Window.width < 1180
    readonly property real paneWidth: narrow ? 0 : Window.width >= 1680 ? 440 : 384

    function takeFocus() {
        (form.item as Item)?.forceActiveFocus(Qt.OtherFocusReason);
    }

    Component.onCompleted: {
        agent.appear();
        agent.ensureLoaded();
    }
    Component.onDestruction: agent.disappear()

    InboxHead {
        id: head
        width: root.width
        store: root.store

        OrvButton {
            visible: root.narrow
            text: "Your AI’s training"
            onClicked: drawer.shown = true
        }
    }

    ResourceView {
        y: head.height
        width: root.width - root.paneWidth
        height: root.height - y
        resource: root.agent.settings
        errorTitle: "Couldn’t load the agent settings"
        onRetryRequested: root.agent.refresh()

        Loader {
            id: form
            anchors.fill: parent
            focus: true
            active: root.agent.settings.hasContent
            sourceComponent: AgentSettingsForm {
                agent: root.agent
            }
        }
    }

    AgentTraining {
        visible: !root.narrow
        x: root.width - width
        y: head.height
        width: root.paneWidth
        height: root.height - y
        store: root.store
        agent: root.agent
    }

    OnDemand {
        id: drawer
        sourceComponent: OrvDrawer {
            title: "Your AI’s training"
            asksToClose: true
            onCloseRequested: drawer.shown = false

            AgentTraining {
                width: parent.width
                height: root.height - 120
                store: root.store
                agent: root.agent
            }
        }
    }

    NameFormDialog {
        form: root.agent.lessons.adding
    }

    NameFormDialog {
        form: root.agent.lessons.changing
    }
}
