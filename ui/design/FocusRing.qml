import QtQuick

/// The keyboard's focus: two pixels of ring beyond two pixels of gap around its parent.
Rectangle {
    id: root

    property real innerRadius: Theme.radiusControl
    property bool inset: false

    anchors.fill: parent
    anchors.margins: inset ? 2 : -4
    radius: inset ? Math.max(0, innerRadius - 2) : innerRadius + 4
    color: "transparent"
    border.width: 2
    border.color: Theme.focus
}
