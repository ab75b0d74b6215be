import Orvella.Design

/// How an account's connection stands.
OrvBadge {
    /// "connected", "running" or "failed".
    property string connection: ""

    tone: connection === "connected" ? "positive" : connection === "failed" ? "negative" : "neutral"
    shape: connection === "failed" ? "square" : "dot"
}
