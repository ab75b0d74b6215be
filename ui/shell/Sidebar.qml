import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Shell

/// The workspace, the search, the pages and the person; folded to icons as a rail.
FocusScope {
    id: root

    required property AppModel app
    property bool rail: false

    readonly property Router router: app.router
    readonly property list<pageEntry> pages: router.pages
    /// None while a page that is switched off stands in the window.
    readonly property string currentPage: router.offFeature === "" ? router.page : ""
    readonly property real itemWidth: width - 17
    readonly property int unread: app.notifier.unread[app.session !== null ? app.session.slug : ""] ?? 0

    width: rail ? 56 : 232

    Accessible.role: Accessible.Pane
    Accessible.name: "Sidebar"

    Keys.onDownPressed: step(true)
    Keys.onUpPressed: step(false)

    function step(forward: bool) {
        const item = Window.window.activeFocusItem?.nextItemInFocusChain(forward);
        for (let parent = item; parent; parent = parent.parent) {
            if (parent === root) {
                item.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
                return;
            }
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }

    Rectangle {
        x: root.width - 1
        width: 1
        height: root.height
        color: Theme.border
    }

    WorkspaceSwitcher {
        x: 8
        y: 8
        width: root.itemWidth
        focus: true
        app: root.app
        rail: root.rail
    }

    T.AbstractButton {
        id: search
        x: 8
        y: 57
        width: root.itemWidth
        height: 32
        text: "Search or go to…"
        focusPolicy: Qt.StrongFocus
        Accessible.role: Accessible.Button
        Accessible.name: text
        Accessible.onPressAction: clicked()
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        onClicked: root.router.paletteOpen = true

        background: Rectangle {
            radius: Theme.radiusControl
            color: search.down ? Theme.pressed : search.hovered ? Theme.hover : Theme.surface
            border { width: 1; color: Theme.border }
            FocusRing { visible: search.activeFocus && InputMode.keyboard; inset: true }
        }

        contentItem: Item {
            OrvIcon {
                x: root.rail ? (parent.width - width) / 2 : 11
                anchors.verticalCenter: parent.verticalCenter
                size: 16
                name: "edit-find"
                color: Theme.text2
            }

            Text {
                visible: !root.rail
                x: 34
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: search.text
                font: Theme.body
                color: Theme.text2
                Accessible.ignored: true
            }

            OrvKeyCap {
                visible: !root.rail
                anchors { right: parent.right; rightMargin: 7; verticalCenter: parent.verticalCenter }
                text: "Ctrl K"
            }
        }

        OrvTooltip {
            beside: true
            text: root.rail ? search.text : ""
            keys: "Ctrl K"
        }
    }

    Column {
        x: 8
        y: 98

        Repeater {
            model: [...root.pages].filter(page => !page.atFoot)

            SidebarItem {
                required property pageEntry modelData
                required property int index

                width: root.itemWidth
                bottomRoom: root.pages[index + 1].group !== modelData.group ? 10 : 0
                rail: root.rail
                text: modelData.title
                iconName: modelData.iconName
                keys: "G " + modelData.key
                count: modelData.page === "inbox" ? root.unread : 0
                attention: modelData.page === "accounts" ? root.app.notifier.attention : 0
                current: root.currentPage === modelData.page
                onClicked: root.router.open(modelData.page)
            }
        }
    }

    SidebarItem {
        readonly property pageEntry info: [...root.pages].find(page => page.atFoot)

        x: 8
        y: (jobs.visible ? jobs.y : person.y) - height - 8
        width: root.itemWidth
        rail: root.rail
        text: info.title
        iconName: info.iconName
        keys: "G " + info.key
        current: root.currentPage === info.page
        onClicked: root.router.open(info.page)
    }

    JobsLine {
        id: jobs
        x: 8
        y: person.y - height - 8
        width: root.itemWidth
        jobs: root.app.jobs
        rail: root.rail
    }

    PersonFoot {
        id: person
        y: root.height - height
        width: root.width - 1
        app: root.app
        rail: root.rail
        foldable: root.router.foldable
    }
}
