import QtQuick
import Orvella.Design
import Orvella.App

/// A page that only explains itself.
FocusScope {
    id: root

    property string title: ""
    property string iconName: ""
    property string heading: ""
    property string text: ""
    property string actionText: ""

    signal actionRequested()

    PageHeader {
        id: header
        width: root.width
        title: root.title
    }

    Rectangle {
        y: header.height - 1
        width: root.width
        height: 1
        color: Theme.border
    }

    OrvEmpty {
        y: header.height
        width: root.width
        height: root.height - y
        focus: true
        iconName: root.iconName
        title: root.heading
        text: root.text
        actionText: root.actionText
        onActionRequested: root.actionRequested()
    }
}
