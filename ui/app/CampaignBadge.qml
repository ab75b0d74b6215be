import Orvella.Design

/// A campaign's status. A word that this build does not know shows as it stands.
OrvBadge {
    property string status: ""

    tone: status === "running" ? "positive" : status === "paused" ? "warning" : status === "completed" ? "accent" : "neutral"
    shape: status === "draft" ? "ring" : "dot"
}
