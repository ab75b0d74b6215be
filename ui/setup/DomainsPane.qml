import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.Setup

/// A project's domains, one a row: pasted into the field above them, taken off at their end. Those that were taken off
/// stand in their place when asked for.
FocusScope {
    id: root

    required property SetupDomains domains
    property string problem: ""
    property bool editable: false
    property bool makesInboxes: false

    function focusField() {
        domains.showArchived = false;
        field.forceActiveFocus(Qt.OtherFocusReason);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.bg
    }

    Rectangle {
        x: parent.width - 1
        width: 1
        height: parent.height
        color: Theme.border
    }

    Column {
        id: head
        x: 20
        y: 16
        width: root.width - 40
        spacing: 8

        Row {
            spacing: 8

            Text {
                textFormat: Text.PlainText
                text: root.domains.showArchived ? "Archived domains" : "Domains"
                font: Theme.paneTitle
                color: Theme.text
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            OrvCount {
                anchors.verticalCenter: parent.verticalCenter
                value: root.domains.showArchived ? root.domains.archivedRows.count : root.domains.rows.count
            }
        }

        Text {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.domains.showArchived ? "Domains taken off this project. Restore puts one back." : root.domains.countText
            font: Theme.small
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        OrvTextArea {
            id: field
            visible: !root.domains.showArchived
            enabled: root.editable
            width: parent.width
            leastHeight: Theme.controlHeight
            mostHeight: 120
            label: "Add domains"
            placeholder: "Paste from Sheets, or type one and press Enter"
            help: "Paste a full address and its domain joins the list."
            text: root.domains.typed
            error: root.domains.problem !== "" ? root.domains.problem : root.problem
            onEdited: text => root.domains.typed = text
            onActiveFocusChanged: {
                if (!activeFocus)
                    root.domains?.addTyped();
            }
        }
    }

    OrvEmpty {
        visible: list.count === 0
        anchors.fill: list
        text: root.domains.showArchived ? "Nothing archived" : "No domains yet. Paste a column from Sheets, one domain a line."
    }

    OrvDivider {
        y: list.y - 1
        width: root.width - 1
    }

    ListView {
        id: list
        y: head.y + head.height + 12
        width: root.width - 1
        height: foot.y - y
        clip: true
        activeFocusOnTab: count > 0
        boundsBehavior: Flickable.StopAtBounds
        model: root.domains.showArchived ? root.domains.archivedRows : root.domains.rows
        T.ScrollBar.vertical: OrvScrollBar {}
        Accessible.role: Accessible.List
        Accessible.name: root.domains.showArchived ? "Archived domains" : "Domains"
        // What is here is taken off, what was taken off is put back.
        Keys.onPressed: event => {
            const acts = root.domains.showArchived ? [Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space] : [Qt.Key_Delete];
            event.accepted = acts.includes(event.key);
            if (event.accepted)
                (currentItem as DomainLine)?.act();
        }

        delegate: DomainLine {
            width: list.width
            archived: root.domains.showArchived
            editable: root.editable
            busy: root.domains.busyDomains.includes(domain)
            current: ListView.isCurrentItem && list.activeFocus && InputMode.keyboard
            onRemoved: domain => root.domains.remove(domain)
            onRestored: domain => root.domains.restore(domain)
        }
    }

    Column {
        id: foot
        y: root.height - height
        width: root.width - 1
        bottomPadding: 8

        OrvDivider {
            visible: registrar.visible
            width: parent.width
        }

        Column {
            id: registrar
            visible: root.makesInboxes && !root.domains.showArchived
            x: 20
            width: parent.width - 40
            topPadding: 8
            bottomPadding: 8

            Text {
                width: parent.width
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                text: "Connect your domain registrar so we can set up DNS for these domains"
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            OrvLink {
                text: "Connect registrar"
                onClicked: root.domains.connectRegistrar()
            }
        }

        OrvDivider {
            width: parent.width
        }

        // In a narrow pane one below the other.
        Flow {
            x: 12
            width: parent.width - 24
            topPadding: 8
            spacing: 4

            OrvButton {
                visible: !root.domains.showArchived
                kind: "ghost"
                size: "small"
                iconName: "view-refresh"
                text: "Look up registrars"
                hint: "Who holds each domain, from the public registry."
                enabled: root.editable && root.domains.rows.count > 0
                busy: root.domains.lookingUp
                onClicked: root.domains.lookUp()
            }

            OrvButton {
                kind: "ghost"
                size: "small"
                iconName: root.domains.showArchived ? "arrow-left" : "archive-insert"
                text: root.domains.showArchived ? "Back to domains" : "Archived"
                count: root.domains.showArchived ? -1 : root.domains.archivedRows.count
                onClicked: root.domains.showArchived = !root.domains.showArchived
            }
        }
    }
}
