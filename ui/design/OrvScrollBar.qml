import QtQuick
import QtQuick.Templates as T

/// The thin scroll bar of lists and panes; attach it as ScrollBar.vertical or ScrollBar.horizontal.
T.ScrollBar {
    id: root

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight, implicitContentHeight + topPadding + bottomPadding)
    padding: 2
    minimumSize: 0.04
    visible: policy !== T.ScrollBar.AlwaysOff && size < 1

    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: Theme.borderControl
        opacity: root.pressed || root.hovered ? 0.8 : 0.4
    }
}
