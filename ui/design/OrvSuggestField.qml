import QtQuick
import Orvella.Design

/// A text field that offers what its text may stand for. Down and Enter choose; Esc leaves the text as it is.
OrvField {
    id: root

    /// Maps with key and label, or nothing when the text needs no help.
    property var suggestions: []
    property bool dismissed: false

    signal chosen(string key)

    function choose(key: string) {
        dismissed = true;
        chosen(key);
    }

    onEdited: dismissed = false
    onAccepted: list.take()

    Keys.onUpPressed: event => event.accepted = list.step(-1)
    Keys.onDownPressed: event => event.accepted = list.step(1)
    Keys.onEscapePressed: event => {
        event.accepted = list.visible;
        dismissed = true;
    }

    SuggestionList {
        id: list
        wanted: root.caret && !root.dismissed
        options: root.suggestions
        onChosen: key => root.choose(key)
    }
}
