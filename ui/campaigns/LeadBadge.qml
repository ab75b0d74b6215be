import Orvella.Design

/// How a lead stands in its campaign. A word that this build does not know shows as it stands.
OrvBadge {
    property string status: ""

    tone: {
        switch (status) {
        case "active": return "positive";
        case "replied": return "accent";
        case "paused": return "warning";
        case "bounced":
        case "unsubscribed": return "negative";
        default: return "neutral";
        }
    }
    shape: status === "queued" ? "ring" : "dot"
}
