import QtQuick
import Orvella.Design

/// A block with a warning or an error, in place among other content.
Rectangle {
    id: root

    property string text: ""
    /// "warning" or "negative".
    property string tone: "warning"
    /// What is shown and hidden for its sake: itself, or what else belongs to it as well.
    property Item shownBy: root
    readonly property bool negative: tone === "negative"

    height: label.implicitHeight + 20
    radius: Theme.radiusCard
    color: negative ? Theme.negativeSubtle : Theme.warningSubtle

    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    SpokenError {
        shownBy: root.shownBy
        text: root.text
        onAppeared: root.reveal()
    }

    /// What is out of sight would leave the button that was pressed looking dead.
    function reveal() {
        let pane = parent;
        while (pane && !(pane instanceof ScrollPane)) pane = pane.parent;
        (pane as ScrollPane)?.revealNotice(root, negative);
    }

    OrvIcon {
        x: 12
        y: 12
        size: 16
        name: root.negative ? "data-error" : "data-warning"
        color: root.negative ? Theme.negative : Theme.warning
    }

    Text {
        id: label
        x: 36
        y: 10
        width: root.width - x - 12
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        lineHeightMode: Text.FixedHeight
        lineHeight: 20
        text: root.text
        font: Theme.body
        color: Theme.text
        Accessible.ignored: true
    }
}
