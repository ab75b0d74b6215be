import QtQuick
import Orvella.Design
import Orvella.Rampup

/// What can be done with the roadmaps of all ticked accounts.
OrvSelectionBar {
    id: root

    required property RampupBulk bulk
    /// Without room for icons and for all of the actions.
    property bool narrow: false

    count: bulk.selection.count
    countText: bulk.countText

    BulkButton { word: "pause"; text: "Pause roadmap"; iconName: root.narrow ? "" : "media-playback-pause"; onClicked: root.bulk.pause() }
    BulkButton { word: "resume"; text: "Resume roadmap"; iconName: root.narrow ? "" : "media-playback-start"; onClicked: root.bulk.resume() }
    BulkButton { word: "extend"; text: root.bulk.extendLabel; onClicked: root.bulk.extend() }
    BulkButton { word: "edit"; text: "Edit roadmaps"; iconName: root.narrow ? "" : "document-edit"; onClicked: root.bulk.edit() }
    BulkButton { word: "warmup"; visible: !root.narrow; text: "Pause warmup"; onClicked: root.bulk.switchWarmup(false) }
    BulkButton { word: "warmup"; visible: !root.narrow; text: "Resume warmup"; onClicked: root.bulk.switchWarmup(true) }

    OrvButton {
        id: more
        visible: root.narrow
        kind: "ghost"
        text: "More"
        menuArrow: true
        enabled: root.bulk.busy === ""
        onClicked: menu.openAt(more, true)
    }

    MenuLoader {
        id: menu
        sourceComponent: OrvMenu {
            title: "More"

            OrvMenuItem { text: "Pause warmup"; iconName: "media-playback-pause"; onTriggered: root.bulk.switchWarmup(false) }
            OrvMenuItem { text: "Resume warmup"; iconName: "media-playback-start"; onTriggered: root.bulk.switchWarmup(true) }
        }
    }

    component BulkButton: OrvButton {
        property string word: ""

        kind: "ghost"
        busy: root.bulk.busy === word
        enabled: root.bulk.busy === "" || busy
    }
}
