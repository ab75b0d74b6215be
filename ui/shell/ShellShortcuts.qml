pragma ComponentBehavior: Bound
import QtQuick
import QtQml
import Orvella.Shell

/// The keys that work on every page. Letters are off in text fields, which take them first.
Item {
    id: root

    required property Router router
    required property CommandPalette palette

    Shortcut {
        sequence: "Ctrl+K"
        onActivated: root.router.paletteOpen = true
    }

    Shortcut {
        sequence: "Ctrl+B"
        onActivated: root.router.collapsed = !root.router.collapsed
    }

    Shortcut {
        sequences: ["Ctrl+/", "Ctrl+Shift+/"]
        onActivated: root.router.shortcutsOpen = true
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

    Shortcut {
        sequence: "N"
        enabled: !root.router.goPending
        onActivated: root.palette.run("campaigns.new")
    }

    Shortcut {
        sequence: "G"
        onActivated: root.router.startGo()
    }

    // The chord's second keys; "G G" starts it anew.
    Instantiator {
        model: ["D", "A", "L", "R", "V", "C", "I", "E", "B", "S"]

        Shortcut {
            required property string modelData

            sequence: modelData
            enabled: root.router.goPending
            onActivated: root.router.finishGo(modelData.toLowerCase())
        }
    }
}
