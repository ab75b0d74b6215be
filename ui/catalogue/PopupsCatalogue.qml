import QtQuick
import Orvella.Design

/// Everything that floats: a menu, dialogs, the palette, the drawer and toasts. `shown` opens one of them at once.
Rectangle {
    id: root

    property string shown: ""

    color: Theme.surface

    Component.onCompleted: {
        toasts.append({toastId: "1", message: "Couldn’t test lena@broker.example.com", detail: "The server refused the sign-in.", tone: "error", actionLabel: ""});
        toasts.append({toastId: "2", message: "Campaign paused. Booked sends were cancelled.", detail: "", tone: "success", actionLabel: ""});
        toasts.append({toastId: "3", message: "Deleted “Boutique hotels, winter”. It’s in Archived.", detail: "", tone: "standard", actionLabel: "Undo"});
        results.append({group: "Pages", title: "Campaigns", subtitle: "", iconName: "mail-send", chord: "G C"});
        results.append({group: "Actions", title: "New campaign", subtitle: "Campaigns", iconName: "list-add", chord: "N"});
        results.append({group: "Workspaces", title: "Caldera Studio", subtitle: "caldera", iconName: "system-users", chord: ""});
    }

    ListModel { id: toasts }
    ListModel { id: results }

    Timer {
        running: root.shown !== ""
        interval: 1
        onTriggered: root.show(root.shown)
    }

    function show(name: string) {
        if (name === "menu")
            menu.openAt(row, false);
        else if (name === "dialog")
            dialog.open();
        else if (name === "danger")
            danger.open();
        else if (name === "palette")
            palette.open();
        else if (name === "drawer")
            drawer.open();
        else if (name === "calendar")
            calendar.openUnder();
    }

    Row {
        id: row
        x: 24
        y: 24
        spacing: 8

        Repeater {
            model: ["menu", "dialog", "danger", "palette", "drawer", "calendar"]

            OrvButton {
                required property string modelData

                text: modelData
                onClicked: root.show(modelData)
            }
        }
    }

    OrvMenu {
        id: menu
        title: "Fleet maintenance, Benelux"

        OrvMenuItem { text: "Rename"; iconName: "document-edit"; shortcutText: "F2" }
        OrvMenuItem { text: "Pause"; iconName: "media-playback-pause"; enabled: false }
        OrvMenuItem { text: "Duplicate"; iconName: "edit-copy"; shortcutText: "Ctrl D" }
        OrvMenuSeparator {}
        OrvMenuItem { text: "Delete"; iconName: "edit-delete"; danger: true; shortcutText: "Del" }
    }

    OrvDialog {
        id: dialog
        title: "Launch Freight forwarders, Baltics?"
        lead: "420 leads · 5 inboxes."
        text: "Goes to 417 real people outside your own inboxes, like maris@baltcargo.example.com, ilze@tallinnport.example.org."
        warning: "Tips, it still sends: Links (email 1 has two links); Length (email 3 is over 120 words)."
        confirmText: "Launch"
    }

    OrvDialog {
        id: danger
        title: "Delete Northgate Growth?"
        text: "Everything in it goes for good."
        error: "Couldn’t delete the workspace."
        destructive: true
        typedWord: "DELETE"
        confirmText: "Delete"
    }

    OrvCalendar {
        id: calendar
        parent: row
        today: "2026-11-20"
        chosen: "2026-11-26"
        first: "2026-11-09"
    }

    OrvCommandPalette {
        id: palette
        model: results
        query: "ca"
    }

    OrvDrawer {
        id: drawer
        title: "Lead"

        OrvNotice {
            width: parent.width
            text: "This lead unsubscribed on 3 Nov."
        }
    }

    OrvToastStack {
        anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
        model: toasts
    }
}
