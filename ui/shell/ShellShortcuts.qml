pragma ComponentBehavior: Bound
import QtQuick
import QtQml
import Orvella.Shell

/// The keys that work on every page, and those of the open page. Letters are off in text fields, which take them first.
Item {
    id: root

    required property Router router
    required property OpenPage page
    required property Commands commands

    Shortcut {
        sequence: "Ctrl+K"
        onActivated: root.router.paletteOpen = true
    }

    Shortcut {
        sequence: "Ctrl+B"
        enabled: root.router.foldable
        onActivated: root.router.collapsed = !root.router.collapsed
    }

    Shortcut {
        sequences: ["?", "Ctrl+/", "Ctrl+Shift+/"]
        // One that is held would open and close it over and over.
        autoRepeat: false
        onActivated: root.router.shortcutsOpen = !root.router.shortcutsOpen
    }

    // A text that is being written has its own.
    Shortcut {
        sequences: [StandardKey.Undo]
        onActivated: root.commands.undo()
    }

    Shortcut {
        sequences: ["Alt+Left", "Back"]
        enabled: root.router.canGoBack
        onActivated: root.router.goBack()
    }

    Shortcut {
        sequences: ["Alt+Right", "Forward"]
        enabled: root.router.canGoForward
        onActivated: root.router.goForward()
    }

    // What F5 does, everywhere.
    Shortcut {
        sequence: "Ctrl+R"
        onActivated: root.page.press("F5")
    }

    // Under items: shortcuts that an Instantiator makes are deaf once its model has changed a second time.
    Repeater {
        model: root.page.keys

        Item {
            id: key

            required property string modelData

            Shortcut {
                sequence: key.modelData
                enabled: !root.router.goPending
                onActivated: root.page.press(key.modelData)
            }
        }
    }

    Shortcut {
        sequence: "G"
        onActivated: root.router.startGo()
    }

    // The chord's second keys; "G G" starts it anew.
    Instantiator {
        model: root.router.pages

        Shortcut {
            required property pageEntry modelData

            sequence: modelData.key
            enabled: root.router.goPending
            onActivated: root.router.finishGo(modelData.key)
        }
    }
}
