import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// The form for one lead.
FocusScope {
    id: root

    required property LeadAdding adding

    implicitHeight: form.implicitHeight

    Column {
        id: form
        width: root.width
        spacing: 12

        OrvField {
            width: parent.width
            focus: true
            label: "Email address"
            text: root.adding.email
            error: root.adding.emailError
            inputMethodHints: Qt.ImhEmailCharactersOnly
            onEdited: text => root.adding.email = text
        }

        Grid {
            columns: 2
            spacing: 12

            Repeater {
                model: [
                    { key: "firstName", label: "First name" },
                    { key: "lastName", label: "Last name" },
                    { key: "company", label: "Company" },
                    { key: "title", label: "Title" },
                    { key: "website", label: "Website" }
                ]

                OrvField {
                    required property var modelData

                    width: (form.width - 12) / 2
                    label: modelData.label
                    text: root.adding.field(modelData.key)
                    onEdited: text => root.adding.setField(modelData.key, text)
                }
            }
        }
    }
}
