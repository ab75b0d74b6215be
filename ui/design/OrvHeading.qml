import QtQuick
import Orvella.Design

/// The heading of a page, where the keyboard begins when the page is opened. Tab goes on from it and does not come back.
Text {
    id: root

    readonly property bool isPageHeading: true

    textFormat: Text.PlainText
    font: Theme.pageTitle
    color: Theme.text
    Accessible.role: Accessible.Heading
    Accessible.name: text
    Accessible.focusable: true

    OrvTooltip {
        text: root.truncated ? root.text : ""
    }

    // Around the words: the item is as wide as the header leaves it, and in some as high.
    Item {
        y: root.verticalAlignment === Text.AlignVCenter ? (root.height - height) / 2 : root.topPadding
        x: root.leftPadding
        width: Math.min(root.contentWidth, root.width - root.leftPadding)
        height: root.contentHeight

        FocusRing {
            visible: root.activeFocus && InputMode.keyboard
        }
    }
}
