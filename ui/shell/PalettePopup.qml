import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// The command palette over the window.
OnDemand {
    id: root

    required property Router router
    required property CommandPalette palette

    shown: router.paletteOpen

    sourceComponent: OrvCommandPalette {
        model: root.palette
        subject: root.palette.subject
        onAboutToShow: root.palette.prepare()
        onQueryEdited: text => root.palette.query = text
        onChosen: index => root.palette.choose(index)
        onMoreRequested: index => root.palette.ask(index)
        onBackRequested: root.palette.back()
        onClosed: root.router.paletteOpen = false
    }
}
