pragma ComponentBehavior: Bound
import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// What a campaign still needs before it is launched; each leads to where that is done.
Item {
    id: root

    required property CampaignStore store
    readonly property bool shown: store.launchPath.length > 0 && store.canWrite

    visible: shown
    implicitHeight: shown ? 40 : 0

    Accessible.role: Accessible.Grouping
    Accessible.name: "Before launching"

    ChoiceList {
        id: steps
        options: root.store.launchPath
    }

    Row {
        x: Theme.pageSide
        height: parent.height - 1
        spacing: 8

        Repeater {
            model: steps

            Row {
                id: step

                required property choice modelData
                required property int index

                height: parent.height
                spacing: 6

                Text {
                    visible: step.index > 0
                    height: parent.height
                    rightPadding: 2
                    verticalAlignment: Text.AlignVCenter
                    textFormat: Text.PlainText
                    text: "·"
                    font: Theme.body
                    color: Theme.text3
                    Accessible.ignored: true
                }

                Item {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 14
                    height: 14

                    OrvIcon {
                        visible: step.modelData.ticked
                        name: "checkmark"
                        size: 14
                        color: Theme.positive
                    }

                    Rectangle {
                        visible: !step.modelData.ticked
                        anchors.centerIn: parent
                        width: 10
                        height: 10
                        radius: 5
                        color: "transparent"
                        border { width: 1; color: Theme.borderControl }
                    }
                }

                OrvLink {
                    anchors.verticalCenter: parent.verticalCenter
                    text: step.modelData.label + " " + (step.modelData.count >= 0
                        ? step.modelData.count.toLocaleString(Qt.locale(), "f", 0) : step.modelData.detail)
                    quiet: true
                    Accessible.name: text + (step.modelData.ticked ? ", done" : ", to do")
                    onClicked: root.store.openLaunchStep(step.modelData.key)
                }
            }
        }
    }

    OrvDivider {
        y: parent.height - 1
        width: parent.width
    }
}
