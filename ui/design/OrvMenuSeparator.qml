import QtQuick
import QtQuick.Templates as T

T.MenuSeparator {
    implicitWidth: 100
    implicitHeight: visible ? 9 : 0

    Accessible.role: Accessible.Separator

    contentItem: Item {
        Rectangle {
            y: 4
            width: parent.width
            height: 1
            color: Theme.border
        }
    }
}
