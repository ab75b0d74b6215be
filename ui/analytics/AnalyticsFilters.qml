import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Analytics

/// The filters in their line; where that is narrow, behind one button.
Item {
    id: root

    required property AnalyticsStore store
    property bool folded: false

    implicitWidth: folded ? button.width : choices.width
    implicitHeight: Theme.controlHeight

    function open() {
        popover.active = true;
        popover.popup.open();
    }

    FilterChoices {
        id: choices
        visible: !root.folded
        store: root.store
    }

    OrvButton {
        id: button
        visible: root.folded
        text: "Filters"
        iconName: "view-filter"
        count: root.store.filterCount > 0 ? root.store.filterCount : -1
        menuArrow: true
        onClicked: root.open()
    }

    Loader {
        id: popover

        readonly property T.Popup popup: item as T.Popup

        active: false
        sourceComponent: T.Popup {
            id: panel

            readonly property FocusReturn focusReturn: FocusReturn {}

            parent: button
            x: button.width - width
            y: button.height + 4
            width: 288
            height: contentItem.implicitHeight + topPadding + bottomPadding
            padding: 16
            focus: true
            closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside | T.Popup.CloseOnReleaseOutsideParent
            onAboutToShow: focusReturn.remember(parent)
            onOpened: contentItem.forceActiveFocus(Qt.PopupFocusReason)
            onAboutToHide: focusReturn.giveBack()

            background: OrvFloat {
                Accessible.role: Accessible.Dialog
                Accessible.name: "Filters"
            }

            contentItem: FocusScope {
                implicitHeight: column.height
                focus: true

                Column {
                    id: column
                    width: parent.width
                    spacing: 16

                    FilterChoices {
                        focus: true
                        store: root.store
                        labelled: true
                        choiceWidth: column.width
                    }

                    OrvButton {
                        anchors.right: parent.right
                        kind: "ghost"
                        size: "small"
                        text: "Clear filters"
                        enabled: root.store.filtered
                        onClicked: root.store.clearFilters()
                    }
                }
            }
        }
    }
}
