import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// Asks what an action on ticked accounts has to be told: a number, tags or a host.
OnDemand {
    id: root

    required property AccountBulk bulk

    shown: bulk.shown

    sourceComponent: OrvDialog {
        title: root.bulk.title
        text: root.bulk.intro
        confirmText: root.bulk.submitLabel
        confirmEnabled: root.bulk.canSubmit
        busy: root.bulk.busy
        error: root.bulk.error
        initialFocus: root.bulk.input === "number" ? number : root.bulk.input === "tags" ? tags : host
        onConfirmed: root.bulk.submit()
        onCancelled: root.bulk.cancel()
        onAboutToShow: host.selectAll()

        RestoredNotice {
            width: parent.width
            recovery: root.bulk.recovery
        }

        OrvNumberField {
            id: number
            visible: root.bulk.input === "number"
            width: 208
            label: root.bulk.label
            keepsText: true
            clearable: true
            to: root.bulk.most
            text: root.bulk.text
            error: root.bulk.problem
            onTyped: text => root.bulk.text = text
        }

        OrvTagEditor {
            id: tags
            visible: root.bulk.input === "tags"
            width: parent.width
            label: root.bulk.label
            placeholder: "Add a tag"
            tags: root.bulk.tags
            // Not before something is typed: they would hide the dialog's buttons.
            suggestions: input.text.trim() === "" ? [] : root.bulk.knownTags
            error: root.bulk.problem
            onAdded: texts => root.bulk.addTags(texts)
            onRemoved: key => root.bulk.removeTag(key)
        }

        OrvField {
            id: host
            visible: root.bulk.input === "host"
            width: parent.width
            label: root.bulk.label
            help: root.bulk.help
            text: root.bulk.text
            error: root.bulk.problem
            onEdited: text => root.bulk.text = text
        }
    }
}
