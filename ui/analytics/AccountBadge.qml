import Orvella.Design

/// A word about an account: its status or its health. One that this build does not know shows as it stands.
OrvBadge {
    property string word: ""
    readonly property bool failing: word === "failed" || word === "error" || word === "at_risk"
    readonly property bool careful: word === "paused" || word === "warning"

    tone: word === "active" || word === "healthy" ? "positive" : failing ? "negative" : careful ? "warning"
        : word === "verifying" ? "accent" : "neutral"
    shape: failing ? "square" : word === "warning" ? "diamond" : "dot"
}
