import QtQuick
import Orvella.Design
import Orvella.Leads

/// The filters of a group.
Column {
    id: root

    required property LeadFilters filters
    required property string group
    readonly property string database: filters.database
    readonly property var values: filters.values
    // Asked for anew with each database, and not with each change of the search.
    readonly property list<leadField> fields: database !== "" ? filters.fields(group) : []

    leftPadding: 16
    rightPadding: 16
    bottomPadding: 12
    spacing: 12

    Repeater {
        model: root.fields

        Loader {
            id: field

            required property leadField modelData

            width: root.width - 32
            sourceComponent: {
                switch (modelData.kind) {
                case "text": return text;
                case "number": return number;
                case "flag": return flag;
                default: return facet;
                }
            }

            Component {
                id: facet

                FacetField {
                    filters: root.filters
                    key: field.modelData.key
                    several: field.modelData.several
                    excludes: field.modelData.excludes
                    headed: root.fields.length > 1
                }
            }

            Component {
                id: text

                OrvField {
                    label: field.modelData.title
                    text: root.values[field.modelData.key] ?? ""
                    onEdited: text => root.filters.type(field.modelData.key, text)
                }
            }

            Component {
                id: number

                OrvField {
                    label: field.modelData.title
                    text: root.values[field.modelData.key] ?? ""
                    inputMethodHints: Qt.ImhDigitsOnly
                    onEdited: text => {
                        error = root.filters.numberProblem(text);
                        if (error === "")
                            root.filters.type(field.modelData.key, text.trim());
                    }
                }
            }

            Component {
                id: flag

                OrvCheckbox {
                    text: field.modelData.title
                    checked: (root.values[field.modelData.key] ?? "") !== ""
                    onToggled: root.filters.choose(field.modelData.key, checked ? "1" : "")
                }
            }
        }
    }
}
