import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// The program's window: what is shown while it starts, signed out, or signed in.
Window {
    id: root

    required property AppModel app
    required property CommandPalette palette
    property TableMemory tables: null
    required property Commands commands
    /// Stands in for the desktop's save panel where there is none.
    property NameForm saveForm: null
    property NameForm openForm: null

    readonly property string phase: app.phase

    // On a screen that is smaller, drawn large say, the window is still all on it.
    minimumWidth: Math.min(1024, Screen.width > 0 ? Screen.width : 1024)
    minimumHeight: Math.min(700, Screen.height > 0 ? Screen.height : 700)
    color: Theme.surface
    title: shell.view !== null ? shell.view.title : "Orvella"

    // What somebody wrote is saved first; a second wish to close is no other one.
    onClosing: close => close.accepted = app.mayClose()

    Connections {
        target: root.app

        function onClosable() {
            root.close();
        }
    }

    onActiveChanged: {
        app.notifier.setActive(active);
        if (active)
            app.refreshAccount();
    }

    Binding { target: Tables; property: "memory"; value: root.tables }
    Binding { target: Theme; property: "dark"; value: root.app.appearance.dark }
    Binding { target: Theme; property: "reducedMotion"; value: root.app.appearance.reducedMotion }

    ModalPane {
        anchors.fill: parent

        Loader {
            anchors.fill: parent
            active: root.phase === "booting"
            sourceComponent: BootScreen {
                name: root.app.greetedName
            }
        }

        Loader {
            anchors.fill: parent
            active: root.phase === "signedOut"
            sourceComponent: SignInScreen {
                model: root.app.signIn
            }
        }

        Loader {
            id: shell

            readonly property ShellView view: item as ShellView

            anchors.fill: parent
            active: root.phase === "signedIn"
            sourceComponent: ShellView {
                app: root.app
                palette: root.palette
                commands: root.commands
            }
            onLoaded: forceActiveFocus()
        }
    }

    JobResultDialog {
        jobs: root.app.jobs
        workspace: root.app.session !== null ? root.app.session.slug : ""
    }

    SavingDialog {
        departure: root.app.departure
    }

    ConfirmDialog {
        overlays: root.app.overlays
    }

    NameFormDialog {
        form: root.saveForm
    }

    NameFormDialog {
        form: root.openForm
    }

    ToastLayer {
        id: toasts
        toasts: root.app.toasts
    }

    Shortcut {
        sequence: "F6"
        onActivated: root.nextPane()
    }

    Shortcut {
        sequences: [StandardKey.ZoomIn, "Ctrl+="]
        onActivated: root.app.appearance.stepSize(1)
    }

    Shortcut {
        sequences: [StandardKey.ZoomOut]
        onActivated: root.app.appearance.stepSize(-1)
    }

    Shortcut {
        sequence: "Ctrl+0"
        onActivated: root.app.appearance.stepSize(0)
    }

    Shortcut {
        sequences: [StandardKey.Quit]
        onActivated: root.close()
    }

    /// Sidebar, page, messages, and around again.
    function nextPane() {
        const inPage = shell.view !== null && shell.view.pageHasFocus();
        if (toasts.hasFocus || root.app.toasts.count === 0 && inPage)
            shell.view ? shell.view.focusSidebar() : toasts.toggleFocus();
        else if (shell.view !== null && !inPage)
            shell.view.focusPage();
        else
            toasts.toggleFocus();
    }
}
