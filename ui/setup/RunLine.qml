import QtQuick
import Orvella.Design
import Orvella.Setup

/// A domain of a run, which folds away its inboxes, or one of these.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn roleColumn
    required property OrvColumn stepColumn
    required property OrvColumn stateColumn
    required property OrvColumn updatedColumn
    required property SetupProjectStore store

    required property bool isDomain
    required property string domain
    required property string local
    required property string roleText
    required property string countText
    required property bool folded
    required property int steps
    required property bool isUnderWay
    required property bool isFailed
    required property bool isDone
    required property string stateText
    required property string tone
    required property string reason
    required property string updatedText
    required property bool canAuthorize
    required property bool canRetry

    label: isDomain ? domain + ", " + countText + (folded ? ", folded" : "")
                    : local + domain + ", " + stateText + (reason !== "" ? ", " + reason : "")
    color: marked ? Theme.selected : isDomain ? Theme.bg : hovered ? Theme.hover : Theme.surface

    OrvCell {
        column: root.nameColumn
        label: root.isDomain ? root.domain : root.local + root.domain

        OrvIcon {
            visible: root.isDomain
            anchors.verticalCenter: parent.verticalCenter
            name: root.folded ? "go-next" : "go-down"
            size: 12
            color: Theme.text2

            TapHandler {
                margin: 8
                onTapped: root.store.fold(root.domain)
            }
        }

        Text {
            id: name
            x: 20
            width: Math.min(implicitWidth, parent.width - x - (root.isDomain ? count.width + 8 : 0))
            height: root.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            text: root.isDomain ? root.domain : root.local
            font: root.isDomain ? Theme.bodyStrong : Theme.body
            color: Theme.text
            Accessible.ignored: true
        }

        Text {
            visible: !root.isDomain
            x: name.x + name.width
            width: parent.width - x
            height: root.height
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            text: root.domain
            font: Theme.body
            color: Theme.text2
            Accessible.ignored: true
        }

        Text {
            id: count
            x: name.x + name.width + 8
            height: root.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: root.countText
            font: Theme.small
            color: Theme.text2
            Accessible.ignored: true
        }
    }

    OrvTextCell {
        column: root.roleColumn
        text: root.roleText
        font: Theme.small
        color: Theme.text2
    }

    OrvCell {
        id: ticks
        column: root.stepColumn
        label: root.isDomain ? "" : root.steps + " of 6"

        Row {
            visible: !root.isDomain
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Repeater {
                model: root.isDomain ? 0 : 6

                Rectangle {
                    required property int index
                    readonly property bool behind: index < root.steps

                    width: 20
                    height: 4
                    radius: 2
                    color: behind ? (root.isDone ? Theme.positive : Theme.accentText)
                         : index === root.steps && root.isFailed ? Theme.negative
                         : index === root.steps && root.isUnderWay ? Qt.alpha(Theme.accentText, 0.5)
                         : root.marked ? Theme.surface : Theme.pressed
                }
            }
        }
    }

    OrvCell {
        column: root.stateColumn
        label: root.stateText

        OrvBadge {
            visible: !root.isDomain
            anchors.verticalCenter: parent.verticalCenter
            text: root.stateText
            tone: root.tone
            shape: root.isFailed ? "square" : root.tone === "warning" ? "diamond" : "dot"

            OrvTooltip {
                text: root.reason
                asked: root.reason !== "" && root.current && root.activeFocus && InputMode.keyboard
            }
        }

        OrvButton {
            visible: root.isDomain && (root.canAuthorize || root.canRetry) && root.store.editable
            anchors.verticalCenter: parent.verticalCenter
            size: "small"
            text: root.canAuthorize ? "Authorize" : "Run this domain"
            activeFocusOnTab: false
            focusPolicy: Qt.NoFocus
            enabled: !root.store.busy || root.canAuthorize
            onClicked: root.canAuthorize ? root.store.authorize(root.domain) : root.store.retryDomain(root.domain)
        }
    }

    OrvTextCell {
        column: root.updatedColumn
        text: root.updatedText
        font: Theme.small
        color: Theme.text2
    }
}
