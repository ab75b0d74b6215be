import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Figures
import Orvella.Rampup

/// One account: its roadmap day by day and, beside that, its warm-up and how that fares.
FocusScope {
    id: root

    required property RampupAccountStore store
    readonly property bool beside: width >= 900
    readonly property real paneWidth: 304

    Component.onCompleted: store.ensureLoaded()

    RampupAccountHeader {
        id: header
        width: root.width
        store: root.store
    }

    OrvDivider {
        id: line
        y: header.height
        width: root.width
    }

    ResourceView {
        y: line.y + 1
        width: root.width
        height: root.height - y
        resource: root.store.detail
        errorTitle: "Couldn’t load this roadmap"
        errorAction: "Back to Rampup"
        onErrorActionRequested: root.store.openList()
        onRetryRequested: root.store.refresh()

        Loader {
            anchors.fill: parent
            focus: true
            active: root.store.detail.hasContent
            sourceComponent: root.beside ? twoPanes : onePane
        }
    }

    Component {
        id: twoPanes

        FocusScope {
            ScrollPage {
                width: parent.width - root.paneWidth
                height: parent.height
                focus: true
                maximumWidth: 1200
                belowHeight: 24

                Loader {
                    width: parent.width
                    sourceComponent: picture
                }
            }

            Rectangle {
                x: parent.width - width
                width: root.paneWidth
                height: parent.height
                color: Theme.bg

                Rectangle {
                    width: 1
                    height: parent.height
                    color: Theme.border
                }

                OrvForm {
                    anchors.fill: parent
                    maximumWidth: root.paneWidth

                    Loader {
                        width: parent.width
                        sourceComponent: warmup
                    }
                }
            }
        }
    }

    Component {
        id: onePane

        ScrollPage {
            belowHeight: 24
            focus: true

            Loader {
                width: parent.width
                sourceComponent: picture
            }

            Loader {
                width: Math.min(parent.width, 640)
                sourceComponent: warmup
            }
        }
    }

    Component {
        id: picture

        Column {
            spacing: 16

            OrvNotice {
                visible: root.store.note !== ""
                width: parent.width
                text: root.store.note
            }

            FigureStrip {
                width: parent.width
                figures: root.store.figures
            }

            OrvDivider {
                width: parent.width
            }

            OrvEmpty {
                visible: !root.store.onRoadmap
                width: parent.width
                height: 200
                iconName: "view-calendar-timeline"
                title: root.store.missingTitle
                text: root.store.missingText
                actionText: ""
            }

            RoadmapPicture {
                visible: root.store.onRoadmap
                width: parent.width
                store: root.store
            }
        }
    }

    Component {
        id: warmup

        Column {
            spacing: 24

            WarmupSection {
                width: parent.width
                store: root.store
            }

            OrvDivider {
                width: parent.width
            }

            HealthSection {
                width: parent.width
                store: root.store
            }
        }
    }

    ExtendDialog {
        store: root.store
    }

    RestartDialog {
        store: root.store
    }

    RoadmapEditorDialog {
        editor: root.store.editor
    }
}
