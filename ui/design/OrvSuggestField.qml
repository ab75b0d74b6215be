import QtQuick
import Orvella.Design

/// A text field that offers what its text may stand for. Down and Enter choose; Esc leaves the text as it is.
OrvField {
    id: root

    /// Nothing when the text needs no help.
    property alias suggestions: list.options
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
        onChosen: key => root.choose(key)
    }
}
