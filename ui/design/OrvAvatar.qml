import QtQuick

/// A person by their initials, or a workspace by its letter on the accent.
Rectangle {
    id: root

    property string name: ""
    property int size: 28
    property bool workspace: false

    readonly property string initials: {
        const words = name.trim().split(/\s+/).filter(word => word.length > 0);
        if (words.length === 0) return "";
        if (workspace || words.length === 1) return words[0].charAt(0).toUpperCase();
        return (words[0].charAt(0) + words[words.length - 1].charAt(0)).toUpperCase();
    }
    readonly property int tint: initials === "" ? 0 : initials.charCodeAt(0) % Theme.avatarGrounds.length

    implicitWidth: size
    implicitHeight: size
    radius: workspace ? Theme.radiusControl : size / 2
    color: workspace ? Theme.accent : Theme.avatarGrounds[tint]
    Accessible.ignored: true

    Text {
        anchors.centerIn: parent
        textFormat: Text.PlainText
        text: root.initials
        font: root.workspace ? Theme.bodyBold : Theme.microBold
        color: root.workspace ? Theme.inkOnAccent : Theme.avatarInks[root.tint]
    }
}
