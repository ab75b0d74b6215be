import QtQuick
import Orvella.Design

/// What every screen is wrapped in: its skeleton, its empty state, its error with "Try again", no connection, or its
/// content, under the offline line where the content is what was saved.
Item {
    id: root

    /// One of "loading", "empty", "ready", "offline", "error".
    property string status: "loading"
    /// There is content to show; with "offline" it is the saved one.
    property bool hasContent: status === "ready"
    /// A reload runs over content that is shown.
    property bool refreshing: false

    property string emptyIcon: ""
    property string emptyTitle: ""
    property string emptyText: ""
    property string emptyAction: ""
    property string errorTitle: ""
    property string errorText: ""
    /// Another way on than trying again.
    property string errorAction: ""
    /// The table that will show the rows.
    property TableCore skeletonTable: null
    property real skeletonRowHeight: 52
    property real skeletonTopInset: 32
    /// A skeleton of the page's own, for screens that are not tables.
    property Component skeleton: null

    default property alias content: body.data

    signal retryRequested()
    signal emptyActionRequested()
    signal errorActionRequested()

    readonly property bool contentShown: hasContent && (status === "ready" || status === "offline")

    /// One around this one, of a page whose parts are loaded on their own. The offline line is said once.
    property OrvStateView around: null
    readonly property bool offlineSaid: status === "offline" && hasContent || offlineSaidAround
    readonly property bool offlineSaidAround: around !== null && around.offlineSaid

    Component.onCompleted: {
        let item = parent;
        while (item && !(item instanceof OrvStateView)) item = item.parent;
        around = item as OrvStateView;
    }

    Item {
        id: body
        visible: root.contentShown
        y: offlineLine.height
        width: root.width
        height: root.height - y
    }

    Rectangle {
        id: offlineLine
        visible: root.offlineSaid && !root.offlineSaidAround
        width: root.width
        height: visible ? 32 : 0
        color: Theme.warningSubtle
        Accessible.role: Accessible.AlertMessage
        Accessible.name: "You’re offline. Showing saved data."
        onVisibleChanged: {
            if (visible)
                Announcer.say(Accessible.name, "state");
        }

        OrvIcon {
            x: 24
            anchors.verticalCenter: parent.verticalCenter
            size: 16
            name: "data-warning"
            color: Theme.warning
        }

        Text {
            x: 48
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "You’re offline. Showing saved data."
            font: Theme.body
            color: Theme.text
            Accessible.ignored: true
        }
    }

    // A still line: what is refreshed stays readable, and nothing moves in the corner of the eye.
    Rectangle {
        visible: root.refreshing && root.contentShown
        y: body.y
        z: 2
        width: root.width
        height: 2
        color: Theme.accentText
        Accessible.role: Accessible.Indicator
        Accessible.name: "Refreshing"
    }

    Loader {
        anchors.fill: parent
        active: !root.contentShown
        sourceComponent: root.status === "loading" ? (root.skeleton !== null ? root.skeleton : rows)
            : root.status === "empty" || root.status === "ready" ? nothing : failed
    }

    Component {
        id: rows
        OrvSkeleton {
            table: root.skeletonTable
            rowHeight: root.skeletonRowHeight
            topInset: root.skeletonTopInset
        }
    }

    Component {
        id: nothing
        OrvEmpty {
            iconName: root.emptyIcon
            title: root.emptyTitle
            text: root.emptyText
            actionText: root.emptyAction
            onActionRequested: root.emptyActionRequested()
        }
    }

    Component {
        id: failed
        OrvEmpty {
            readonly property bool offline: root.status === "offline"

            iconName: offline ? "network-disconnect" : "data-error"
            title: offline ? "You’re offline" : root.errorTitle
            text: offline ? root.errorText || "Check your connection, then try again." : root.errorText
            actionText: "Try again"
            otherText: root.errorAction
            busy: root.refreshing
            onOtherRequested: root.errorActionRequested()
            onActionRequested: root.retryRequested()
        }
    }
}
