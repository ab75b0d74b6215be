import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// The stages of a roadmap while somebody edits them, with the curve that they make.
OnDemand {
    id: root

    required property RoadmapEditor editor

    shown: editor.shown

    sourceComponent: OrvDialog {
        title: root.editor.title
        text: root.editor.about
        warning: root.editor.differs
        dialogWidth: 768
        confirmText: root.editor.submitLabel
        confirmEnabled: root.editor.canSubmit
        busy: root.editor.busy
        error: root.editor.error
        problem: root.editor.problem
        onConfirmed: root.editor.submit()
        onCancelled: root.editor.cancel()

        RestoredNotice {
            width: parent.width
            recovery: root.editor.recovery
        }

        Column {
            width: parent.width
            spacing: 6

            StageFields {
                width: parent.width
                heads: true
                editor: root.editor
            }

            Repeater {
                model: root.editor.stages

                StageFields {
                    required property int index
                    required property string id
                    required property string key
                    required property string name
                    required property string days
                    required property string warmupFrom
                    required property string warmupTo
                    required property string campaignFrom
                    required property string campaignTo
                    required property string wrong

                    width: parent.width
                    editor: root.editor
                    number: index + 1
                    stageId: id
                    stageWrong: wrong
                    texts: ({ key: key, name: name, days: days, warmupFrom: warmupFrom, warmupTo: warmupTo,
                              campaignFrom: campaignFrom, campaignTo: campaignTo })
                }
            }
        }

        Item {
            width: parent.width
            height: Theme.controlHeightSmall

            OrvButton {
                kind: "ghost"
                size: "small"
                text: "Add stage"
                iconName: "list-add"
                enabled: root.editor.canAdd && !root.editor.busy
                onClicked: root.editor.add()
            }

            Text {
                anchors.right: parent.right
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.editor.countText
                font: Theme.small
                color: Theme.text2
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }

        OrvChart {
            width: parent.width
            implicitHeight: 204
            title: root.editor.summary
            days: root.editor.days
            series: root.editor.series
            today: root.editor.today
            dayNotes: root.editor.dayNotes
            emptyText: "Add a stage to see its curve."
        }
    }
}
