import QtQuick
import Orvella.Design

/// The top of a page: its title, one line about what it shows, and what can be done with the whole of it.
Item {
    id: root

    property string title: ""
    property string summary: ""
    /// What of it somebody should look after, behind the summary.
    property string attention: ""
    /// Of what is under it: the actions end where that ends.
    property real contentWidth: Infinity
    default property alias actions: actionRow.data

    implicitHeight: 66

    OrvHeading {
        id: titleText
        x: Theme.pageSide
        y: 16
        width: actionRow.x - x - 16
        height: 24
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: root.title
        Accessible.description: root.attention === "" ? root.summary : root.summary === "" ? root.attention : root.summary + ", " + root.attention
    }

    Text {
        id: summaryText

        readonly property real room: titleText.width - (attentionText.visible ? attentionText.implicitWidth : 0)
        /// Without its first parts where there is no room for them: how many there are, the foot says as well.
        readonly property string fitting: {
            const parts = root.summary.split(" · ");
            while (parts.length > 1 && metrics.advanceWidth(parts.join(" · ")) > room)
                parts.shift();
            return parts.join(" · ");
        }

        x: Theme.pageSide
        y: 40
        width: Math.min(implicitWidth, room)
        height: 20
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: fitting
        font: Theme.body
        color: Theme.text2
        Accessible.role: Accessible.StaticText
        Accessible.name: root.summary
        Accessible.ignored: text === ""
    }

    FontMetrics {
        id: metrics
        font: Theme.body
    }

    Text {
        id: attentionText
        visible: root.attention !== ""
        x: summaryText.x + summaryText.width
        y: summaryText.y
        height: 20
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: (root.summary !== "" ? " · " : "") + root.attention
        font: Theme.bodyStrong
        color: Theme.warning
        Accessible.role: Accessible.StaticText
        Accessible.name: root.attention
    }

    Row {
        id: actionRow
        x: Math.min(root.width - Theme.pageSide, Theme.pageSide + root.contentWidth) - width
        y: 16
        height: Theme.controlHeight
        spacing: 8
    }
}
