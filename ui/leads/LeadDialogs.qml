import QtQuick
import Orvella.Leads

/// What is asked before something is done with leads: for the search and for a list alike.
Item {
    required property LeadActions actions
}
