import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Figures

/// Asks for a range of the person's own.
OnDemand {
    id: root

    required property RangeForm form

    shown: form.shown

    sourceComponent: OrvDialog {
        title: "Custom range"
        dialogWidth: 400
        confirmText: "Show range"
        error: root.form.error
        initialFocus: from
        onConfirmed: root.form.submit()
        onCancelled: root.form.cancel()
        onAboutToShow: from.selectAll()

        Row {
            width: parent.width
            spacing: 16

            OrvDateField {
                id: from
                width: (parent.width - parent.spacing) / 2
                label: "From"
                text: root.form.from
                onEdited: text => root.form.from = text
            }

            OrvDateField {
                width: from.width
                label: "To"
                text: root.form.to
                onEdited: text => root.form.to = text
            }
        }
    }
}
