import QtQuick
import Orvella.Design

/// The draft's card before it is there.
Item {
    Rectangle {
        x: 424
        y: 64
        width: Math.max(0, parent.width - x - 28)
        height: Math.max(0, parent.height - y - 28)
        radius: Theme.radiusFloat
        color: "transparent"
        border { width: 1; color: Theme.border }

        Column {
            x: 20
            y: 92
            spacing: 14

            Repeater {
                model: [320, 460, 420, 180]

                Rectangle {
                    required property int modelData

                    width: modelData
                    height: 10
                    radius: 3
                    color: Theme.pressed
                }
            }
        }
    }
}
