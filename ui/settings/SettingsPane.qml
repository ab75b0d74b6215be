import QtQuick
import Orvella.App
import Orvella.Settings

/// What every tab is made of: its title, what it is for, and what stands in it.
FocusScope {
    id: root

    required property SettingsStore store
    property alias summary: header.summary
    property alias actions: header.actions
    default property alias content: body.data

    PageHeader {
        id: header
        width: root.width
        title: root.store.title
    }

    FocusScope {
        id: body
        y: header.height
        width: root.width
        height: root.height - y
        focus: true
    }
}
