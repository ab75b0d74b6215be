import QtQuick

/// Letters typed one after another in a list of choices.
QtObject {
    id: root

    property string typed: ""
    readonly property Timer pause: Timer {
        interval: 800
        onTriggered: root.typed = ""
    }

    /// Returns what the labels are compared with now.
    function add(letter: string): string {
        typed += letter.toLowerCase();
        pause.restart();
        return comparedWith(typed);
    }

    /// One letter pressed again and again goes through all that begin with it.
    function comparedWith(typed: string): string {
        return typed.split("").every(each => each === typed[0]) ? typed[0] : typed;
    }

    /// Whether a pressed key belongs to a word that is being looked for.
    function takes(text: string, modifiers: int): bool {
        return text.length === 1 && !(modifiers & Qt.ControlModifier) && (text > " " || text === " " && typed !== "");
    }
}
