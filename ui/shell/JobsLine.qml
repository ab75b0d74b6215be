import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Shell

/// Long work in a line: what runs and how far it is, or what came of it. It opens the panel.
T.AbstractButton {
    id: root

    required property Jobs jobs
    property bool rail: false
    readonly property bool runs: jobs.running > 0
    readonly property int percent: Math.floor(jobs.progress * 100)

    height: 32
    text: jobs.line
    visible: text !== ""
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.ButtonMenu
    Accessible.name: text
    Accessible.description: runs && percent >= 0 ? percent + "%" : ""
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        radius: Theme.radiusControl
        color: root.down ? Theme.pressed : root.hovered ? Theme.hover : "transparent"
        FocusRing { visible: root.activeFocus && InputMode.keyboard; inset: true }
    }

    contentItem: Item {
        OrvIcon {
            x: root.rail ? (parent.width - width) / 2 : 10
            y: 8
            visible: !ring.shown
            size: 16
            name: root.runs ? "document-send" : "checkmark"
            color: Theme.text2
        }

        OrvBusyRing {
            id: ring
            x: root.rail ? (parent.width - width) / 2 : 10
            y: 8
            size: 16
            running: root.runs
        }

        OrvCount {
            visible: root.rail && root.runs
            x: parent.width - width
            y: -2
            accented: true
            value: root.jobs.running
        }

        Text {
            visible: !root.rail
            x: 36
            width: share.x - x - 6
            height: 28
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.text
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }

        Text {
            id: share
            visible: !root.rail && text !== ""
            x: parent.width - (text !== "" ? width + 10 : 4)
            height: 28
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.runs && root.percent >= 0 ? root.percent + "%" : ""
            font: Theme.small
            color: Theme.text3
            Accessible.ignored: true
        }

        OrvProgress {
            visible: !root.rail && root.runs && root.percent >= 0
            x: 36
            y: 28
            width: parent.width - x - 10
            implicitHeight: 2
            value: root.jobs.progress
        }
    }

    OrvTooltip {
        beside: true
        text: panel.shown ? "" : root.text
    }

    onClicked: panel.shown = !panel.shown

    OnDemand {
        id: panel

        sourceComponent: JobsPanel {
            parent: root
            jobs: root.jobs
            x: root.width + 8
            y: root.height - height
            onClosed: panel.shown = false
        }
    }
}
