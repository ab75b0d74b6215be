import QtQuick
import Orvella.App
import Orvella.Design
import Orvella.Leads

/// The values that a filter can have: typed for, ticked, more or fewer of them. The list is one stop for Tab; Up and Down
/// move along it, Space ticks.
Column {
    id: root

    required property LeadFilters filters
    required property FacetList facet
    property bool headed: false

    spacing: 2

    Component.onCompleted: facet.show()

    Text {
        visible: root.headed
        width: parent.width
        height: visible ? 22 : 0
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.facet.title
        font: Theme.smallStrong
        color: Theme.text2
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    SearchField {
        width: parent.width
        ofPage: false
        placeholder: root.facet.placeholder
        text: root.facet.typed
        onEdited: text => root.facet.typed = text
        onAccepted: root.filters.addTyped(root.facet.key)
        onFinished: list.take()
    }

    OrvLink {
        visible: root.facet.canAdd
        text: "Add “" + root.facet.typed.trim() + "”"
        onClicked: root.filters.addTyped(root.facet.key)
    }

    FocusScope {
        id: list

        property int at: 0

        width: parent.width
        height: rows.height
        activeFocusOnTab: values.count > 0
        readonly property bool waiting: root.facet.waiting && values.count > 0
        opacity: waiting ? 0.5 : 1

        Accessible.role: Accessible.List
        Accessible.name: root.facet.title

        function take() {
            if (values.count > 0)
                forceActiveFocus(Qt.TabFocusReason);
        }

        function move(by: int) {
            at = Math.max(0, Math.min(values.count - 1, at + by));
        }

        function toggle(index: int) {
            const row = values.itemAt(index) as FacetValue;
            if (row)
                row.toggled();
        }

        Keys.onUpPressed: move(-1)
        Keys.onDownPressed: move(1)
        Keys.onSpacePressed: toggle(at)
        Keys.onReturnPressed: toggle(at)
        Keys.onEnterPressed: toggle(at)

        Column {
            id: rows
            width: parent.width

            Repeater {
                id: values
                model: ChoiceList { options: root.facet.rows }
                onCountChanged: list.move(0)

                FacetValue {
                    required property choice modelData
                    required property int index

                    width: rows.width
                    label: modelData.label
                    count: modelData.detail
                    hint: root.facet.hintOf(modelData.key)
                    ticked: modelData.ticked
                    single: root.facet.single
                    current: list.activeFocus && list.at === index
                    focus: list.at === index
                    onToggled: root.filters.toggle(root.facet.key, modelData.key)
                }
            }
        }
    }

    Text {
        visible: text !== ""
        height: 26
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.facet.emptyText
        font: Theme.small
        color: Theme.text3
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    OrvLink {
        visible: root.facet.hiddenCount > 0
        text: "Show " + root.facet.hiddenCount + " more"
        onClicked: root.facet.expanded = true
    }

    OrvLink {
        visible: root.facet.expanded
        text: "Show fewer"
        onClicked: root.facet.expanded = false
    }

    OrvLink {
        visible: root.facet.failed
        text: "Couldn’t load the values. Try again"
        onClicked: root.facet.tryAgain()
    }
}
