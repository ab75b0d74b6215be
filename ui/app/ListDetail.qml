import QtQuick
import Orvella.Design

/// A table and, beside it, the detail of one of its records. Up and Down step the row, and the detail follows. In a wide
/// window the detail pushes the table aside; in a narrow one it covers it as a drawer.
FocusScope {
    id: root

    default property alias list: listSide.data
    required property OrvTable table
    /// The record whose detail shows; empty for none.
    property string shownKey: ""
    property string title: ""
    property Component detail: null
    property real detailWidth: 400

    readonly property bool shown: shownKey !== ""
    readonly property bool beside: Window.width >= 1280

    /// The detail of another record is wanted.
    signal stepped(string key)
    /// Its owner decides whether it closes: something in it may not be saved.
    signal closeRequested()

    function step(by: int) {
        const key = table.rows.keyAt(table.rows.rowOf(shownKey) + by);
        if (key !== "")
            table.show(key);
    }

    Keys.onEscapePressed: event => {
        event.accepted = shown;
        if (shown)
            closeRequested();
    }

    Item {
        id: listSide
        width: root.width - (pane.active ? pane.width : 0)
        height: root.height
    }

    Loader {
        id: pane
        active: root.shown && root.beside
        x: root.width - width
        width: active ? root.detailWidth : 0
        height: root.height
        sourceComponent: PanelFrame {
            title: root.title
            onCloseRequested: root.closeRequested()
            steps: true
            onStepRequested: by => root.step(by)

            Loader {
                width: parent.width
                sourceComponent: root.detail
            }
        }
    }

    Rectangle {
        visible: pane.active
        x: pane.x
        width: 1
        height: root.height
        color: Theme.border
    }

    OnDemand {
        shown: root.shown && !root.beside
        sourceComponent: OrvDrawer {
            title: root.title
            asksToClose: true
            onCloseRequested: root.closeRequested()
            steps: true
            onStepRequested: by => root.step(by)

            Loader {
                width: parent.width
                sourceComponent: root.detail
            }
        }
    }

    Binding {
        target: root.table
        property: "openKey"
        value: root.shownKey
    }

    // A key that is held passes many rows; where it comes to rest is what is looked at.
    Timer {
        id: rest
        interval: 120
        onTriggered: {
            const key = root.table.currentKey;
            if (root.shown && key !== "" && key !== root.shownKey)
                root.stepped(key);
        }
    }

    Connections {
        target: root.table
        enabled: root.shown

        function onCurrentKeyChanged() {
            rest.restart();
        }
    }
}
