pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The mailboxes that a campaign may send from, ticked or not. The arrows move, Space ticks.
FocusScope {
    id: root

    required property SenderPicker picker

    implicitHeight: frame.y + frame.height

    SearchField {
        id: search
        ofPage: false
        visible: root.picker.total > 8
        width: parent.width
        placeholder: "Search inboxes"
        text: root.picker.query
        onEdited: text => root.picker.query = text
        onFinished: list.forceActiveFocus(Qt.TabFocusReason)
    }

    Rectangle {
        id: frame
        y: search.visible ? search.height + 8 : 0
        width: parent.width
        height: Math.min(6.5 * 44, Math.max(1, list.count) * 44) + 2
        radius: Theme.radiusCard
        color: "transparent"
        border { width: 1; color: Theme.border }

        ListView {
            id: list

            anchors.fill: parent
            anchors.margins: 1
            focus: true
            activeFocusOnTab: true
            clip: true
            model: root.picker.rows
            reuseItems: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: true
            Accessible.role: Accessible.List
            Accessible.name: "Inboxes"
            Keys.onSpacePressed: if (currentItem) (currentItem as SenderLine).press()

            T.ScrollBar.vertical: OrvScrollBar {}

            delegate: SenderLine {
                width: list.width
                focused: ListView.isCurrentItem && list.activeFocus && InputMode.keyboard
                onPressed: id => {
                    list.currentIndex = index;
                    root.picker.toggle(id);
                }
            }
        }

        Text {
            visible: list.count === 0
            anchors.centerIn: parent
            textFormat: Text.PlainText
            text: "No inboxes match"
            font: Theme.body
            color: Theme.text3
        }
    }
}
