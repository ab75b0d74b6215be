import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// Asks how many of a search's first leads are selected.
OnDemand {
    id: root

    required property LeadResults results

    shown: results.firstForm.shown

    sourceComponent: OrvDialog {
        id: dialog

        readonly property string problem: root.results.firstProblem(field.text)
        property bool tried: false

        title: "Select leads"
        text: "The first this many leads of this search, in list order."
        confirmText: "Select"
        initialFocus: field
        onConfirmed: {
            tried = true;
            if (problem === "")
                root.results.takeFirst(field.text);
        }
        onCancelled: root.results.firstForm.cancel()

        OrvField {
            id: field
            width: parent.width
            label: "How many"
            help: "Up to 100,000 at a time."
            error: dialog.tried ? dialog.problem : ""
            inputMethodHints: Qt.ImhDigitsOnly
        }
    }
}
