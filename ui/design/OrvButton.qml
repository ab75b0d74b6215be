import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// The one button. An icon-only one still has its text: it is the tooltip and the accessible name.
T.Button {
    id: root

    /// "primary", "secondary", "ghost" or "danger".
    property string kind: "secondary"
    /// "small", "" or "large".
    property string size: ""
    property string iconName: ""
    property bool iconOnly: false
    property bool busy: false
    /// Shown as a key cap at the right end.
    property string keys: ""
    /// A count after the text, in a pill; negative for none.
    property int count: -1
    /// Says more than the text does, or why the button is off.
    property string hint: ""
    property bool menuArrow: false

    readonly property bool filled: kind === "primary" || kind === "danger"
    readonly property color ink: filled ? Theme.inkOnAccent : kind === "ghost" || iconOnly ? Theme.text2 : Theme.text
    readonly property color iconInk: filled ? Theme.inkOnAccent : Theme.text2
    readonly property bool pressable: enabled && !busy
    readonly property color fill: {
        const hot = hovered && pressable;
        if (kind === "primary") return down ? Theme.accentPressed : hot ? Theme.accentHover : Theme.accent;
        if (kind === "danger") return down ? Theme.negativePressed : hot ? Theme.negativeHover : Theme.negativeFill;
        if (down) return Theme.pressed;
        if (hot) return Theme.hover;
        return kind === "secondary" ? Theme.raised : "transparent";
    }

    function press() {
        if (pressable) clicked();
    }

    function pressBy(event) {
        if (!event.isAutoRepeat) press();
    }

    implicitHeight: size === "small" ? Theme.controlHeightSmall
                                     : size === "large" ? Theme.controlHeightLarge : Theme.controlHeight
    implicitWidth: iconOnly ? implicitHeight : Math.ceil(row.implicitWidth) + leftPadding + rightPadding
    leftPadding: iconOnly ? 0 : size === "small" ? 10 : 12
    rightPadding: leftPadding
    topPadding: 0
    bottomPadding: 0
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    opacity: enabled ? 1 : 0.6

    Accessible.role: Accessible.Button
    Accessible.name: text + (count >= 0 ? ", " + count : "") + (busy ? ", busy" : "")
    Accessible.description: hint
    Accessible.onPressAction: root.press()
    // One that is held presses once, and not what came under it meanwhile.
    Keys.onReturnPressed: event => root.pressBy(event)
    Keys.onEnterPressed: event => root.pressBy(event)
    // A busy button keeps its place in the tab order but does nothing.
    Keys.onSpacePressed: event => event.accepted = root.busy || event.isAutoRepeat
    Keys.onReleased: event => event.accepted = event.key === Qt.Key_Space && event.isAutoRepeat

    contentItem: Item {
        Row {
            id: row
            anchors.centerIn: parent
            height: parent.height
            spacing: 6

            Item {
                visible: root.iconName !== "" || root.busy
                width: icon.size
                height: parent.height
                OrvIcon {
                    id: icon
                    anchors.centerIn: parent
                    visible: !ring.shown
                    name: root.iconName
                    size: root.size === "small" ? 14 : 16
                    color: root.iconInk
                }
                Loader {
                    id: ring

                    readonly property bool shown: item !== null && (item as OrvBusyRing).shown
                    // Stays once it is made: it shows for a moment longer than the button is busy.
                    readonly property bool wanted: root.busy
                    onWantedChanged: if (wanted) active = true

                    anchors.centerIn: parent
                    active: false
                    sourceComponent: OrvBusyRing {
                        running: root.busy
                        color: root.iconInk
                    }
                }
            }
            Text {
                visible: !root.iconOnly
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.text
                font: root.filled ? Theme.bodyBold : Theme.bodyStrong
                color: root.ink
            }
            // Few buttons have one of these, and every page makes many buttons.
            Loader {
                active: root.count >= 0
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: OrvCount { value: root.count }
            }
            Loader {
                active: root.keys !== "" && !root.iconOnly
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: OrvKeyCap {
                    text: root.keys
                    filled: root.filled
                }
            }
            OrvIcon {
                visible: root.menuArrow
                anchors.verticalCenter: parent.verticalCenter
                name: "go-down"
                size: 12
                color: root.iconInk
            }
        }
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.fill
        border.width: root.kind === "secondary" && !root.iconOnly ? 1 : 0
        border.color: Theme.borderField
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }
        FocusRing { visible: root.activeFocus && InputMode.keyboard }
    }

    OrvTooltip {
        text: root.hint !== "" ? root.hint : root.iconOnly ? root.text : ""
        keys: root.iconOnly ? root.keys : ""
    }
}
