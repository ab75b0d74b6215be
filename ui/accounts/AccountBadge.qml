import Orvella.Design

/// An account's status. A word that this build does not know shows as it stands.
OrvBadge {
    property string status: ""

    tone: {
        switch (status) {
        case "active": return "positive";
        case "paused": return "warning";
        case "failed": return "negative";
        default: return "neutral";
        }
    }
}
