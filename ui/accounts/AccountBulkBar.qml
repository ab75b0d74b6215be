import QtQuick
import Orvella.Design
import Orvella.Accounts

/// What can be done with all ticked accounts.
OrvSelectionBar {
    id: root

    required property AccountBulk bulk

    BulkButton { verb: "pause"; text: "Pause"; iconName: "media-playback-pause" }
    BulkButton { verb: "resume"; text: "Resume"; iconName: "media-playback-start" }
    BulkButton { verb: "verify"; text: "Test connection"; iconName: "network-connect" }
    BulkButton { verb: "set_limit"; text: "Daily limit" }
    BulkButton { verb: "set_sending_gap"; text: "Minimum wait" }
    BulkButton { verb: "add_tags"; text: "Add tags"; iconName: "tag" }

    OrvButton {
        id: more
        kind: "ghost"
        text: "More"
        menuArrow: true
        enabled: root.bulk.running === ""
        onClicked: menu.openAt(more, true)
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            title: "More"

            OrvMenuItem { text: "Remove tags"; iconName: "tag"; onTriggered: root.bulk.act("remove_tags") }
            OrvMenuItem { text: "Tracking domain"; iconName: "insert-link"; onTriggered: root.bulk.act("set_tracking_domain") }
            OrvMenuItem { text: "Add to Bison"; iconName: "go-next"; onTriggered: root.bulk.act("add_to_bison") }
            OrvMenuSeparator {}
            OrvMenuItem { text: "Remove"; iconName: "edit-delete"; danger: true; onTriggered: root.bulk.act("delete") }
        }
    }

    component BulkButton: OrvButton {
        property string verb: ""

        kind: "ghost"
        busy: root.bulk.running === verb
        enabled: root.bulk.running === "" || busy
        onClicked: root.bulk.act(verb)
    }
}
