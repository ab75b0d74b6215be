import QtQuick
import Orvella.Design

/// What a check said: "yes", "no" or "unknown".
OrvIcon {
    property string said
    /// A "no" that is only not so yet.
    property bool comes: false
    readonly property bool bad: said === "no" && !comes

    name: said === "yes" ? "checkmark" : bad ? "data-warning" : "chronometer"
    size: 14
    color: said === "yes" ? Theme.positive : bad ? Theme.warning : Theme.text2
}
