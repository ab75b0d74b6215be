import QtQuick
import Orvella.Shell

/// Shows the router's page in the open workspace.
FocusScope {
    id: root

    required property AppModel app

    readonly property Router router: app.router
    readonly property string title: router.title

    // A page belongs to one workspace: another one gets pages of its own.
    Repeater {
        model: root.app.session !== null ? [root.app.session] : []

        SessionPages {
            required property var modelData

            width: root.width
            height: root.height
            focus: true
            router: root.router
            session: modelData
        }
    }
}
