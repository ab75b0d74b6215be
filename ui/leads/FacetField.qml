import QtQuick
import Orvella.Leads

/// One filter with its values, and below it what it leaves out.
Column {
    id: root

    required property LeadFilters filters
    required property string key
    required property string several
    property bool excludes: false
    /// Its group holds others as well.
    property bool headed: false

    spacing: 4

    FacetValues {
        width: root.width
        filters: root.filters
        facet: root.filters.facet(root.key)
        headed: root.headed
    }

    Exclusion {
        visible: root.excludes
        width: root.width
        filters: root.filters
        key: root.key
        several: root.several

        FacetValues {
            filters: root.filters
            facet: root.filters.facet("x" + root.key)
            headed: true
        }
    }
}
