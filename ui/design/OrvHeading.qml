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

    FocusRing {
        visible: root.activeFocus && InputMode.keyboard
    }
}
