import QtQuick
import Orvella.Design
import Orvella.Leads

/// The filters that hold, one line of them; those that do not fit are counted, and shown when asked for. Arrows walk
/// along them.
FocusScope {
    id: root

    required property LeadFilters filters
    property bool all: false
    /// How many fit in the line.
    property int fitting: 0
    readonly property int hiddenCount: all ? 0 : chips.count - fitting

    /// The last one that had the focus has gone.
    signal walkedOut()

    implicitHeight: (all ? flow.height : 24) + 8

    Accessible.role: Accessible.Grouping
    Accessible.name: "Filters"

    function placeOf(item: Item): int {
        for (let i = 0; i < chips.count; ++i) {
            if (chips.itemAt(i) === item)
                return i;
        }
        return -1;
    }

    function walk(from: Item, by: int) {
        const next = chips.itemAt(placeOf(from) + by);
        if (next && next.enabled)
            next.forceActiveFocus(Qt.TabFocusReason);
    }

    function remove(key: string, at: int) {
        filters.removeChip(key);
        const next = chips.itemAt(Math.min(at, chips.count - 1));
        if (next)
            next.forceActiveFocus(Qt.OtherFocusReason);
        else
            walkedOut();
    }

    function fitInto(room: real): int {
        let fits = 0;
        while (fits < chips.count && chips.itemAt(fits) && chips.itemAt(fits).x + chips.itemAt(fits).width <= room)
            ++fits;
        return fits;
    }

    function measure() {
        const whole = fitInto(width);
        fitting = whole === chips.count ? whole : Math.max(1, fitInto(width - 84));
    }

    onWidthChanged: measure()

    Item {
        clip: true
        width: root.all ? root.width : root.hiddenCount > 0 ? more.x - 6 : root.width
        height: root.height

        Flow {
            id: flow
            // One line, however long, or as many as there have to be.
            width: root.all ? root.width : 100000
            spacing: 6
            onPositioningComplete: root.measure()

            Repeater {
                id: chips
                model: ChoiceList { options: root.filters.chips }

                OrvChip {
                    id: chip

                    required property choice modelData
                    required property int index

                    enabled: root.all || index < root.fitting
                    opacity: enabled ? 1 : 0
                    Accessible.ignored: !enabled
                    key: modelData.label
                    value: modelData.detail
                    exclusion: modelData.ticked
                    onRemoved: root.remove(modelData.key, index)
                    Keys.onLeftPressed: root.walk(chip, -1)
                    Keys.onRightPressed: root.walk(chip, 1)
                }
            }
        }
    }

    OrvButton {
        id: more
        readonly property Item last: root.fitting > 0 ? chips.itemAt(root.fitting - 1) : null

        visible: root.hiddenCount > 0
        x: last ? last.x + last.width + 6 : 0
        y: -1
        size: "small"
        text: root.hiddenCount + " more"
        onClicked: root.all = true
    }
}
