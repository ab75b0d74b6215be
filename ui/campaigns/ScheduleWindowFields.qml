pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// One weekly window: its name, days, hours and the zone they are in.
Column {
    id: root

    required property ScheduleForm form
    required property int number

    readonly property var hours: form.windows[number] ?? ({name: "", days: [], start: "", end: "", timeZone: ""})
    readonly property list<string> dayNames: ["Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"]

    function set(field: string, text: string) {
        form.setText(number, field, text);
    }

    spacing: 12
    bottomPadding: 8

    Item {
        width: parent.width
        height: nameField.height

        OrvField {
            id: nameField
            width: 304
            label: "Schedule name"
            text: root.hours.name
            onEdited: text => root.set("name", text)
        }

        OrvButton {
            anchors { right: parent.right; bottom: parent.bottom }
            visible: root.form.count > 1
            kind: "ghost"
            iconName: "edit-delete"
            text: "Remove schedule"
            onClicked: root.form.remove(root.number)
        }
    }

    Row {
        id: days

        /// The day that Tab comes to; Left and Right lead on to the others.
        property int at: 0

        function step(by: int) {
            at = (at + by + toggles.count) % toggles.count;
            toggles.itemAt(at).forceActiveFocus(Qt.TabFocusReason);
        }

        spacing: 6

        Accessible.role: Accessible.Grouping
        Accessible.name: "Days"
        Keys.onLeftPressed: step(-1)
        Keys.onRightPressed: step(1)

        Repeater {
            id: toggles
            model: 7

            DayToggle {
                required property int index

                text: dayName.slice(0, 3)
                dayName: root.dayNames[index]
                activeFocusOnTab: index === days.at
                checked: root.hours.days.includes(index + 1)
                onActiveFocusChanged: if (activeFocus) days.at = index
                onClicked: root.form.toggleDay(root.number, index + 1)
            }
        }
    }

    FieldError {
        width: parent.width
        text: root.hours.daysError ?? ""
    }

    Row {
        spacing: 16

        OrvSelect {
            width: 144
            label: "Start"
            times: true
            options: root.form.startTimes(root.hours.start)
            current: root.hours.start
            onChosen: key => root.set("start", key)
        }

        OrvSelect {
            width: 144
            label: "End"
            times: true
            options: root.form.endTimes(root.hours.end)
            current: root.hours.end
            onChosen: key => root.set("end", key)
        }

        OrvSuggestField {
            width: root.width - 2 * (144 + 16)
            label: "Time zone"
            placeholder: "Europe/London"
            text: root.hours.timeZone
            error: root.hours.zoneError ?? ""
            suggestions: Array.from(root.form.zones(text))
            onEdited: text => root.set("timeZone", text)
            onChosen: key => root.set("timeZone", key)
        }
    }

    FieldError {
        width: parent.width
        text: root.hours.timesError ?? ""
    }

    OrvDivider {
        visible: root.number < root.form.count - 1
        width: parent.width
    }
}
