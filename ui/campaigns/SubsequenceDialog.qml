import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Asks for a new subsequence's name and for what starts it.
OnDemand {
    id: root

    required property Subsequences page

    shown: page.form.shown

    sourceComponent: OrvDialog {
        id: dialog
        title: "New subsequence"
        text: root.page.explanation
        confirmText: "Create subsequence"
        busy: root.page.form.busy
        error: root.page.form.error
        initialFocus: field
        onConfirmed: root.page.create()
        onCancelled: root.page.form.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.page.recovery
        }

        OrvField {
            id: field
            width: parent.width
            label: "Name"
            text: root.page.draft.values.name ?? ""
            error: root.page.draft.problems.name ?? ""
            onEdited: text => root.page.draft.set("name", text)
        }

        Column {
            width: parent.width
            spacing: 6

            Text {
                textFormat: Text.PlainText
                text: "Starts when a reply is labelled"
                font: Theme.smallStrong
                color: Theme.text2
                Accessible.ignored: true
            }

            Flow {
                width: parent.width
                spacing: 16
                Accessible.role: Accessible.Grouping
                Accessible.name: "Starts when a reply is labelled"

                Repeater {
                    model: ChoiceList { options: root.page.labels }

                    OrvCheckbox {
                        required property choice modelData

                        text: modelData.label
                        checked: modelData.ticked
                        onToggled: root.page.toggleLabel(modelData.key)
                        // In a dialog Enter says the verb.
                        Keys.onReturnPressed: event => dialog.confirmBy(event)
                    }
                }
            }

            FieldError {
                width: parent.width
                text: root.page.draft.problems.labels ?? ""
            }

            FormNote {
                width: parent.width
                text: root.page.labelsNote
                failed: true
                onRetryRequested: root.page.retryLabels()
            }

            Text {
                width: parent.width
                textFormat: Text.PlainText
                text: "Pick one or more. Unsubscribes never enter: they go on the blocklist."
                font: Theme.small
                color: Theme.text3
                wrapMode: Text.Wrap
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
