import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// One email in the strip of days, and the day on which its wait ends where nothing is sent then.
FocusScope {
    id: root

    required property var model
    required property int index
    required property DaysColumns columns
    required property SequenceDays days
    property bool tabStop: false

    readonly property bool current: model.current
    readonly property int place: model.place
    readonly property int column: drag.active ? drag.column : model.column
    readonly property bool crowded: model.onDay > 1 && !drag.active

    signal chosen()
    signal stepRequested(int by)
    signal writeRequested()

    x: columns.columnX(column) + 4
    y: 30 + (crowded ? model.ofDay * Math.floor(36 / model.onDay) : 0)
    width: columns.widthOf(column) - 8
    height: crowded ? Math.max(9, Math.floor(36 / model.onDay) - 1) : 36
    z: current || drag.active ? 1 : 0
    activeFocusOnTab: tabStop || activeFocus

    Accessible.role: Accessible.ListItem
    Accessible.name: model.words
    Accessible.description: model.movable ? "Alt+Shift+Left and Right change the wait by a day." : ""
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.selected: current
    Accessible.onPressAction: root.chosen()

    Keys.onLeftPressed: event => {
        if (event.modifiers !== Qt.NoModifier)
            event.accepted = false;
        else
            root.stepRequested(-1);
    }
    Keys.onRightPressed: event => {
        if (event.modifiers !== Qt.NoModifier)
            event.accepted = false;
        else
            root.stepRequested(1);
    }
    Keys.onReturnPressed: root.writeRequested()
    Keys.onEnterPressed: root.writeRequested()

    Rectangle {
        anchors.fill: parent
        radius: Math.min(Theme.radiusControl, height / 3)
        color: Theme.accentSubtle
        border { width: root.current || drag.active ? 2 : hover.hovered ? 1 : 0; color: Theme.accentText }
        opacity: drag.active ? 0.85 : 1

        FocusRing {
            visible: root.activeFocus && InputMode.keyboard
            anchors.margins: -3
        }
    }

    Text {
        y: root.crowded ? 0 : 2
        width: parent.width
        height: root.crowded ? parent.height : 16
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.model.title
        font: root.crowded ? Theme.micro : Theme.smallStrong
        color: Theme.accentText
        Accessible.ignored: true
    }

    Text {
        visible: !root.crowded && !drag.active
        y: 18
        width: parent.width
        height: 16
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.model.time
        font: Theme.small
        color: Theme.text2
        Accessible.ignored: true
    }

    DashedFrame {
        visible: root.model.dueColumn >= 0 && !drag.active
        x: root.columns.columnX(root.model.dueColumn) + 4 - root.x
        y: 30 - root.y
        width: root.columns.widthOf(root.model.dueColumn) - 8
        height: 36
        ink: Theme.accentText

        OrvIcon {
            anchors.centerIn: parent
            name: "arrow-right"
            size: 16
            color: Theme.accentText
        }
    }

    OrvTooltip {
        text: drag.active ? "" : root.model.words
    }

    HoverHandler {
        id: hover
        cursorShape: root.model.movable ? Qt.SizeHorCursor : Qt.PointingHandCursor
    }

    TapHandler {
        onTapped: root.chosen()
        onDoubleTapped: root.writeRequested()
    }

    DragHandler {
        id: drag

        property int from: 0
        property int column: 0

        target: null
        enabled: root.model.movable
        yAxis.enabled: false
        onActiveChanged: {
            if (active) {
                from = root.model.column;
                column = from;
            } else if (column !== from) {
                root.days.moveTo(root.model.place, column);
            }
        }
        // The email moves under the pointer, so what counts is where it is in the window.
        onCentroidChanged: {
            if (!active)
                return;
            const by = Math.round((centroid.scenePosition.x - centroid.scenePressPosition.x) / root.columns.columnWidth);
            column = Math.max(0, Math.min(13, from + by));
        }
    }
}
