import Orvella.Design

/// Whether mail to an address arrives. A word that this build does not know shows as it stands.
OrvBadge {
    property string verification: ""

    tone: {
        switch (verification) {
        case "valid": return "positive";
        case "catch_all": return "warning";
        case "invalid": return "negative";
        default: return "neutral";
        }
    }
    shape: verification === "invalid" ? "square" : "dot"
}
