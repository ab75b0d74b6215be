import QtQuick
import Orvella.Design

/// Every control in every state, a page at a time.
Window {
    id: root

    property list<string> pages
    property string page: pages.length > 0 ? pages[0] : ""
    property string popup: ""
    /// The page alone fills the window, for pictures and tests.
    property bool bare: false

    property bool dark: false
    property bool reducedMotion: false

    width: 1280
    height: 800
    title: "Orvella catalogue"
    color: Theme.bg

    Binding { target: Theme; property: "dark"; value: root.dark }
    Binding { target: Theme; property: "reducedMotion"; value: root.reducedMotion }

    Column {
        visible: !root.bare
        x: 12
        y: 12
        spacing: 4

        Repeater {
            model: root.pages

            OrvButton {
                required property string modelData

                width: 156
                kind: modelData === root.page ? "secondary" : "ghost"
                text: modelData
                onClicked: root.page = modelData
            }
        }

        OrvSwitch {
            text: "Dark"
            checked: root.dark
            onToggled: root.dark = checked
        }

        OrvSwitch {
            text: "Reduced motion"
            checked: root.reducedMotion
            onToggled: root.reducedMotion = checked
        }
    }

    Loader {
        id: host
        x: root.bare ? 0 : 180
        width: root.width - x
        height: root.height
        source: root.page === "" ? "" : root.page + "Catalogue.qml"
        onLoaded: {
            if (root.popup !== "")
                item["shown"] = root.popup;
        }
    }
}
