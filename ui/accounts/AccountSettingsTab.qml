import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Accounts

/// An account's settings. What was changed waits in the store, with a bar that saves or discards it.
FocusScope {
    id: root

    required property AccountDetail store
    readonly property AccountSettings form: store.settings
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems

    function save() {
        form.save();
        fields.showWrong(null);
    }

    OrvForm {
        id: fields
        width: root.width
        height: root.height - bar.height
        focus: true
        editable: root.store.canWrite

        RestoredNotice {
            width: parent.width
            recovery: root.form.recovery
        }

        OrvNotice {
            width: parent.width
            visible: text !== ""
            text: root.form.conflict
        }

        OrvNotice {
            width: parent.width
            visible: text !== ""
            tone: "negative"
            text: root.form.problem
        }

        SettingsSection {
            width: parent.width
            title: "Sender"

            OrvField {
                width: parent.width
                focus: true
                label: "Sender name"
                placeholder: "Ellen Marsh"
                help: "The name people see in their inbox."
                text: root.values.displayName ?? ""
                error: root.errors.displayName ?? ""
                onEdited: text => root.form.set("displayName", text)
            }

            OrvTextArea {
                width: parent.width
                label: "Signature"
                placeholder: "Best,\nEllen"
                help: "Added under every email this account sends. Plain text; blank lines stay."
                text: root.values.signature ?? ""
                onEdited: text => root.form.set("signature", text)
            }
        }

        SettingsSection {
            width: parent.width
            title: "Campaign sending"

            Grid {
                id: limits
                width: parent.width
                columns: 2
                columnSpacing: 24

                OrvNumberField {
                    width: (limits.width - 24) / 2
                    label: "Daily limit"
                    help: root.form.keptSendLimit || "The most campaign emails it sends in a day. Rampup lowers it while the account is new."
                    suffix: "per day"
                    from: 0
                    to: root.form.mostSendLimit
                    clearable: true
                    keepsText: true
                    text: root.values.sendLimit ?? ""
                    error: root.errors.sendLimit ?? ""
                    onTyped: text => root.form.set("sendLimit", text)
                }

                OrvNumberField {
                    width: (limits.width - 24) / 2
                    label: "Minimum wait"
                    help: root.form.keptGap || "The shortest gap between two emails from this account."
                    suffix: "minutes"
                    from: 0
                    to: root.form.mostSendingGap
                    clearable: true
                    keepsText: true
                    text: root.values.gap ?? ""
                    error: root.errors.gap ?? ""
                    onTyped: text => root.form.set("gap", text)
                }
            }
        }

        SettingsSection {
            width: parent.width
            title: "Tracking and tags"

            OrvField {
                width: parent.width
                label: "Custom tracking domain"
                placeholder: root.form.trackingExample
                help: root.form.trackingHelp
                text: root.values.trackingDomain ?? ""
                error: root.errors.trackingDomain ?? ""
                onEdited: text => root.form.set("trackingDomain", text)
            }

            Row {
                visible: root.form.hasTrackingDomain
                spacing: 12

                OrvBadge {
                    anchors.verticalCenter: parent.verticalCenter
                    tone: root.form.trackingVerified ? "positive" : "warning"
                    shape: root.form.trackingVerified ? "dot" : "diamond"
                    text: root.form.trackingVerified ? "CNAME verified" : "Not verified"
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }

                OrvButton {
                    size: "small"
                    text: "Check again"
                    busy: root.form.checking
                    onClicked: root.form.checkTracking()
                }
            }

            OrvTagEditor {
                width: parent.width
                label: "Tags"
                help: "Up to 20. Filter the accounts list by tag; campaigns can pick accounts by tag."
                placeholder: "Add a tag"
                error: root.errors.tags ?? ""
                tags: root.form.tags
                suggestions: root.form.tagSuggestions
                onAdded: texts => root.form.addTags(texts)
                onRemoved: key => root.form.removeTag(key)
            }
        }

        SettingsSection {
            width: parent.width
            title: "Warm-up and ramp-up"

            OrvLink {
                text: "Manage in Rampup"
                onClicked: root.store.openRampup()
            }
        }
    }

    SaveBar {
        id: bar
        y: root.height - height
        width: root.width
        shown: root.form.dirty || root.form.saving
        saveText: "Save changes"
        saving: root.form.saving
        canSave: root.form.canSave
        hasErrors: Object.keys(root.errors).length > 0
        onSaveRequested: root.save()
        onDiscardRequested: root.form.discard()
    }

    Shortcut {
        sequence: StandardKey.Save
        enabled: root.form.canSave
        onActivated: root.save()
    }
}
