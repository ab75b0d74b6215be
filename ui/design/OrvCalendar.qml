import QtQuick
import QtQuick.Templates as T
import Orvella.Design

/// A month to pick a day from. The arrows move by days and weeks, Page Up and Page Down by months (with Shift by years),
/// Home and End within the week; Enter picks, Esc leaves.
T.Popup {
    id: root

    /// Days as ISO texts; `first` and `last` are empty where there is no limit.
    property string chosen: ""
    property string first: ""
    property string last: ""
    property string today: DateText.today()
    /// The day the keyboard is at; its month shows.
    property string at: today
    readonly property string firstShown: DateText.monthStart(at)
    readonly property FocusReturn focusReturn: FocusReturn {}

    signal picked(string day)

    /// Under its field, or above it where there is no room below.
    function openUnder() {
        const bottom = parent.mapToItem(null, 0, parent.height).y;
        const below = bottom + 4 + implicitHeight + 8 <= parent.Window.window.height;
        y = below ? parent.height + 4 : -implicitHeight - 4;
        open();
    }

    function canPick(day: string): bool {
        return day !== "" && (first === "" || day >= first) && (last === "" || day <= last);
    }

    /// The nearest day that can be picked.
    function within(day: string): string {
        return first !== "" && day < first ? first : last !== "" && day > last ? last : day;
    }

    function goTo(day: string) {
        if (day === "")
            return;
        at = within(day);
        for (let i = 0; i < cells.count; ++i) {
            const cell = cells.itemAt(i) as CalendarDay;
            if (cell.day === at)
                cell.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    function pick(day: string) {
        if (!canPick(day))
            return;
        close();
        picked(day);
    }

    function dayFor(event): string {
        const year = event.modifiers & Qt.ShiftModifier ? 12 : 1;
        switch (event.key) {
        case Qt.Key_Left: return DateText.plusDays(at, -1);
        case Qt.Key_Right: return DateText.plusDays(at, 1);
        case Qt.Key_Up: return DateText.plusDays(at, -7);
        case Qt.Key_Down: return DateText.plusDays(at, 7);
        case Qt.Key_PageUp: return DateText.plusMonths(at, -year);
        case Qt.Key_PageDown: return DateText.plusMonths(at, year);
        case Qt.Key_Home: return DateText.weekStart(at);
        case Qt.Key_End: return DateText.plusDays(DateText.weekStart(at), 6);
        }
        return "";
    }

    width: 7 * 34 + 24
    implicitHeight: contentItem.implicitHeight + 24
    padding: 12
    margins: 8
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onAboutToShow: {
        focusReturn.remember(parent);
        at = within(chosen !== "" ? chosen : today);
    }
    onOpened: goTo(at)
    onAboutToHide: focusReturn.giveBack()

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }

    background: OrvFloat { radius: Theme.radiusFloat }

    contentItem: FocusScope {
        implicitHeight: grid.y + grid.height
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: "Calendar, " + DateText.month(root.at)

        OrvButton {
            id: before
            size: "small"
            kind: "ghost"
            iconOnly: true
            iconName: "arrow-left"
            text: "Month before"
            keys: "Page Up"
            onClicked: root.at = root.within(DateText.plusMonths(root.at, -1))
        }

        Text {
            anchors { left: before.right; right: next.left }
            height: before.height
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: DateText.month(root.at)
            font: Theme.bodyBold
            color: Theme.text
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvButton {
            id: next
            anchors.right: parent.right
            size: "small"
            kind: "ghost"
            iconOnly: true
            iconName: "arrow-right"
            text: "Month after"
            keys: "Page Down"
            onClicked: root.at = root.within(DateText.plusMonths(root.at, 1))
        }

        Row {
            y: 32

            Repeater {
                model: DateText.weekdays()

                Text {
                    required property string modelData

                    width: 34
                    height: 24
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: modelData
                    font: Theme.micro
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }
        }

        Grid {
            id: grid
            y: 58
            columns: 7

            Keys.onPressed: event => {
                const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space;
                const day = enter ? "" : root.dayFor(event);
                event.accepted = enter || day !== "";
                if (enter)
                    root.pick(root.at);
                else
                    root.goTo(day);
            }

            Repeater {
                id: cells
                model: 42

                CalendarDay {
                    required property int index

                    day: DateText.plusDays(root.firstShown, index)
                    chosen: day === root.chosen
                    today: day === root.today
                    outside: !DateText.isSameMonth(day, root.at)
                    focus: day === root.at
                    enabled: root.canPick(day)
                    onClicked: root.pick(day)
                }
            }
        }
    }
}
