import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Inbox

/// What the agent is told: the rep, the knowledge base, instructions, booking link and follow-ups.
Column {
    id: root

    required property AgentForm form
    readonly property var values: form.draft.values
    readonly property var errors: form.draft.problems
    readonly property real half: (width - 24) / 2

    spacing: 28

    SettingsSection {
        key: "rep"
        width: parent.width
        title: "The rep"
        help: "The rep the AI writes as, and its sign-off."

        Grid {
            width: parent.width
            columns: 2
            columnSpacing: 24
            rowSpacing: 16

            Repeater {
                model: [
                    { key: "repName", label: "Rep name" },
                    { key: "signatureName", label: "Name for signature" },
                    { key: "title", label: "Title" },
                    { key: "company", label: "Company" },
                    { key: "phone", label: "Phone" },
                    { key: "website", label: "Website", placeholder: "Optional" },
                    { key: "extra", label: "Signature extra line", placeholder: "Book a call anytime" }
                ]

                OrvField {
                    required property var modelData

                    width: root.half
                    label: modelData.label
                    placeholder: modelData.placeholder ?? ""
                    text: root.values[modelData.key] ?? ""
                    error: root.errors[modelData.key] ?? ""
                    onEdited: text => root.form.set(modelData.key, text)
                }
            }

            OrvSelect {
                width: root.half
                label: "Tone"
                options: root.form.tones
                current: root.values.tone ?? ""
                onChosen: key => root.form.set("tone", key)
            }
        }
    }

    OrvDivider {
        width: parent.width
    }

    SettingsSection {
        key: "knowledge"
        width: parent.width
        title: "Knowledge base"
        help: "The only company facts the AI may state as true. Prices, results and services it cannot find here are never claimed."

        OrvTextArea {
            width: parent.width
            leastHeight: 160
            mostHeight: 360
            label: "Knowledge base"
            placeholder: "What you sell, pricing, results, how it works…"
            help: root.form.knowledgeHelp
            text: root.values.knowledgeBase ?? ""
            onEdited: text => root.form.set("knowledgeBase", text)
        }
    }

    OrvDivider {
        width: parent.width
    }

    SettingsSection {
        key: "instructions"
        width: parent.width
        title: "Instructions and training"
        help: "Instructions are behaviour and tone rules. Training is examples of good and bad wording; it is never company fact."

        OrvTextArea {
            width: parent.width
            label: "Instructions"
            text: root.values.instructions ?? ""
            onEdited: text => root.form.set("instructions", text)
        }

        OrvTextArea {
            width: parent.width
            label: "Training"
            text: root.values.training ?? ""
            onEdited: text => root.form.set("training", text)
        }
    }

    OrvDivider {
        width: parent.width
    }

    SettingsSection {
        key: "booking"
        width: parent.width
        title: "Booking link"
        help: "The link the AI adds when a prospect asks for a time."

        OrvField {
            width: parent.width
            accessibleName: "Booking link"
            placeholder: "Optional"
            text: root.values.bookingUrl ?? ""
            error: root.errors.bookingUrl ?? ""
            onEdited: text => root.form.set("bookingUrl", text)
        }
    }

    OrvDivider {
        width: parent.width
    }

    SettingsSection {
        key: "followups"
        width: parent.width
        title: "Follow-ups"
        help: "Nudges after your last email when the prospect goes quiet."

        Row {
            width: parent.width
            spacing: 24

            OrvNumberField {
                width: root.half
                label: "Wait between follow-ups, minutes"
                help: "Each one is due this long after the last email."
                from: 1
                to: 525600
                step: 60
                keepsText: true
                text: root.values.followupInterval ?? ""
                error: root.errors.followupInterval ?? ""
                onTyped: text => root.form.set("followupInterval", text)
            }

            OrvNumberField {
                width: root.half
                label: "Follow-ups per chat"
                help: "1 to 4"
                rangeError: "1 to 4"
                from: 1
                to: 4
                keepsText: true
                text: root.values.followupMax ?? ""
                error: root.errors.followupMax ?? ""
                onTyped: text => root.form.set("followupMax", text)
            }
        }
    }
}
