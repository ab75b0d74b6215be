import QtQuick
import Orvella.Shell

/// The signed-in window: the sidebar, the open page, and what is reached from anywhere.
FocusScope {
    id: root

    required property AppModel app
    required property CommandPalette palette
    required property Commands commands

    readonly property Router router: app.router
    readonly property bool railForced: width < 1180 || (width < 1440 && app.openPage.needsRoom)
    readonly property string title: page.title + " – " + (app.session !== null ? app.session.name : "") + " – Orvella"

    focus: true

    Binding {
        target: root.router
        property: "foldable"
        value: !root.railForced
    }

    function focusSidebar() {
        sidebar.forceActiveFocus(Qt.TabFocusReason);
    }

    function pageHasFocus(): bool {
        return page.hasFocus();
    }

    function focusPage() {
        page.enterAgain();
    }

    Sidebar {
        id: sidebar
        app: root.app
        rail: root.railForced || root.router.collapsed
        height: root.height
    }

    PageHost {
        id: page
        x: sidebar.width
        width: root.width - x
        height: root.height
        focus: true
        app: root.app
    }

    // Over everything, for what is under it takes any button; the others pass.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton | Qt.ForwardButton
        Accessible.ignored: true
        onPressed: mouse => mouse.button === Qt.BackButton ? root.router.goBack() : root.router.goForward()
    }

    PalettePopup {
        router: root.router
        palette: root.palette
    }

    ChangelogDialog {
        program: root.app.program
    }

    LogDialog {
        program: root.app.program
    }

    ShortcutSheet {
        router: root.router
        commands: root.commands
    }

    ShellShortcuts {
        router: root.router
        page: root.app.openPage
        commands: root.commands
    }
}
