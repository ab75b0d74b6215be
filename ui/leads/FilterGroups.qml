import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// The database, the keywords, and the groups of filters that the database has.
Column {
    id: root

    required property LeadFinder finder
    readonly property LeadFilters filters: finder.filters
    readonly property var values: filters.values

    function takeKeywords() {
        keywords.take();
    }

    Column {
        x: 16
        width: parent.width - 32
        topPadding: 12
        bottomPadding: 12
        spacing: 8

        OrvSegments {
            width: parent.width
            label: "Database"
            options: root.filters.databases
            current: root.filters.database
            onChosen: key => root.filters.chooseDatabase(key)
        }

        Text {
            visible: text !== ""
            width: parent.width
            elide: Text.ElideRight
            textFormat: Text.PlainText
            text: root.finder.totalText
            font: Theme.small
            color: Theme.text3
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        SearchField {
            id: keywords
            width: parent.width
            placeholder: "Keywords"
            text: root.values["q"] ?? ""
            onEdited: text => root.filters.type("q", text)
        }

        OrvSelect {
            visible: (root.values["q"] ?? "") !== ""
            width: parent.width
            hint: "Where the keywords are looked for"
            options: root.filters.keywordPlaces
            current: root.values["qin"] ?? "any"
            onChosen: key => root.filters.choose("qin", key)
        }

        Exclusion {
            width: parent.width
            filters: root.filters
            key: "q"
            several: "keywords"

            OrvField {
                width: parent.width
                label: "Exclude keywords"
                text: root.values["xq"] ?? ""
                onEdited: text => root.filters.type("xq", text)
            }
        }
    }

    Repeater {
        model: ChoiceList { options: root.filters.groups }

        FilterGroup {
            required property choice modelData

            width: root.width
            filters: root.filters
            group: modelData.key
            title: modelData.label
            holding: modelData.count
            open: modelData.ticked
        }
    }

    OrvDivider {
        width: parent.width
    }
}
