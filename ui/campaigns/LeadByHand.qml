import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The form for one lead.
FocusScope {
    id: root

    required property LeadAdding adding

    implicitHeight: form.implicitHeight

    component Field: OrvField {
        required property string key

        text: root.adding.draft.values[key] ?? ""
        error: root.adding.draft.problems[key] ?? ""
        onEdited: text => root.adding.draft.set(key, text)
    }

    function beginNext() {
        email.forceActiveFocus(Qt.OtherFocusReason);
    }

    Connections {
        target: root.adding

        function onCleared() {
            // Once the fields, which are off while a lead is added, can have the keyboard again.
            Qt.callLater(root.beginNext); // qmllint disable type
        }
    }

    Column {
        id: form
        width: root.width
        spacing: 12

        RestoredNotice {
            width: parent.width
            recovery: root.adding.recovery
        }

        Field {
            id: email
            width: parent.width
            focus: true
            key: "email"
            label: "Email address"
            inputMethodHints: Qt.ImhEmailCharactersOnly
        }

        Grid {
            id: more

            readonly property real half: (form.width - columnSpacing) / 2

            columns: 2
            spacing: 12

            Field { width: more.half; key: "firstName"; label: "First name" }
            Field { width: more.half; key: "lastName"; label: "Last name" }
            Field { width: more.half; key: "company"; label: "Company" }
            Field { width: more.half; key: "title"; label: "Title" }
            Field { width: more.half; key: "website"; label: "Website" }
        }
    }
}
