pragma Singleton
import QtQuick

QtObject {
    readonly property color bg: "#F4F4F1"
}
