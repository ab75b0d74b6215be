import QtQuick

/// A status: its word with a dot, whose shape says the kind for those who do not see the colour.
Rectangle {
    id: root

    property string text: ""
    /// "positive", "warning", "negative", "accent" or "neutral".
    property string tone: "neutral"
    /// "dot", "ring", "square" or "diamond".
    property string shape: "dot"

    /// Of the words, where there is room for them.
    property real longest: 180

    readonly property color ink: tone === "positive" ? Theme.positive : tone === "warning" ? Theme.warning
                               : tone === "negative" ? Theme.negative : tone === "accent" ? Theme.accentText
                               : Theme.neutral

    implicitWidth: label.x + Math.min(longest, Math.ceil(label.implicitWidth)) + 8
    implicitHeight: 20
    radius: height / 2
    color: tone === "positive" ? Theme.positiveSubtle : tone === "warning" ? Theme.warningSubtle
         : tone === "negative" ? Theme.negativeSubtle : tone === "accent" ? Theme.accentSubtle : Theme.neutralSubtle

    Rectangle {
        x: 8
        anchors.verticalCenter: parent.verticalCenter
        width: root.shape === "ring" ? 8 : 6
        height: width
        radius: root.shape === "square" || root.shape === "diamond" ? 1 : width / 2
        rotation: root.shape === "diamond" ? 45 : 0
        color: root.shape === "ring" ? "transparent" : root.ink
        border.width: root.shape === "ring" ? 1.5 : 0
        border.color: root.ink
    }
    Text {
        id: label
        x: root.shape === "ring" ? 20 : 18
        width: root.width - x - 8
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: root.text
        font: Theme.smallStrong
        color: root.ink
    }
}
