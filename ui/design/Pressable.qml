import QtQuick

/// Something to press that is no button to a screen reader: a tab, an entry of a list. The toolkit's own buttons tell
/// assistive programs that they are buttons, whatever role they are given.
Item {
    id: root

    property string text: ""
    readonly property alias hovered: hover.hovered
    readonly property alias down: tap.pressed

    signal clicked()

    Accessible.name: text
    Accessible.onPressAction: if (root.enabled) root.clicked()

    HoverHandler {
        id: hover
    }

    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.clicked()
    }
}
