import QtQuick
import Orvella.Design
import Orvella.Accounts

/// One server: its host, its port, and whether it is spoken to in TLS from the first byte.
Row {
    id: root

    required property ConnectionForm form
    /// Of the form's fields: "smtp" or "imap".
    required property string prefix
    property string label: ""
    property string portLabel: "Port"
    property string secureText: ""
    property string placeholder: ""
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems

    spacing: 12

    OrvField {
        width: root.width - port.width - secure.width - 24
        label: root.label
        placeholder: root.placeholder
        text: root.values[root.prefix + "Host"] ?? ""
        error: root.errors[root.prefix + "Host"] ?? ""
        onEdited: text => root.form.set(root.prefix + "Host", text)
    }

    OrvField {
        id: port
        width: error === "" ? 76 : 150
        label: root.portLabel
        accessibleName: root.label + ", " + root.portLabel
        inputMethodHints: Qt.ImhDigitsOnly
        text: root.values[root.prefix + "Port"] ?? ""
        error: root.errors[root.prefix + "Port"] ?? ""
        onEdited: text => root.form.set(root.prefix + "Port", text)
    }

    OrvSwitch {
        id: secure
        y: 24
        text: root.secureText
        checked: root.values[root.prefix + "Secure"] ?? false
        onToggled: root.form.set(root.prefix + "Secure", checked)
    }
}
