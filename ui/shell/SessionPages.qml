import QtQuick
import Orvella.Design
import Orvella.Analytics
import Orvella.Campaigns
import Orvella.Shell

/// The pages of one workspace. The one place that knows which pages exist.
FocusScope {
    id: root

    required property Router router
    required property WorkspaceSession session

    readonly property Component built: router.page === "dashboard" ? dashboard
                                     : router.page === "analytics" ? analytics
                                     : router.page !== "campaigns" ? notBuilt
                                     : router.campaign === "" ? campaigns : campaign

    Loader {
        id: host
        width: root.width
        height: root.height
        focus: true
        sourceComponent: root.router.offFeature !== "" ? switchedOff : root.built
        onLoaded: enter.restart()
    }

    NumberAnimation {
        id: enter
        target: host
        property: "y"
        from: 8 * root.router.direction
        to: 0
        duration: Theme.pageDuration
        easing.type: Easing.OutCubic
    }

    Component {
        id: dashboard

        DashboardPage {
            focus: true
            store: root.session.dashboard
        }
    }

    Component {
        id: analytics

        AnalyticsPage {
            focus: true
            store: root.session.analytics
        }
    }

    Component {
        id: campaigns

        CampaignsPage {
            store: root.session.campaigns
        }
    }

    Component {
        id: campaign

        FocusScope {
            focus: true

            Repeater {
                // One campaign after the other gets a page of its own.
                model: root.router.campaign !== "" ? [root.router.campaign] : []

                CampaignPage {
                    required property string modelData
                    readonly property CampaignStore kept: root.session.campaignStore(modelData)

                    anchors.fill: parent
                    focus: true
                    store: kept
                    onBackRequested: root.router.open("campaigns")
                    onCampaignRequested: id => root.router.openCampaign(id)

                    // What is on the screen stays, however short the memory.
                    Component.onCompleted: kept.appear()
                    Component.onDestruction: {
                        if (kept)
                            kept.disappear();
                    }
                }
            }
        }
    }

    Component {
        id: switchedOff

        PlainPage {
            title: root.router.title
            iconName: "object-locked"
            heading: title + " is off"
            text: "This workspace has switched it off. An owner or admin can switch it on in the settings."
        }
    }

    Component {
        id: notBuilt

        PlainPage {
            title: root.router.title
            iconName: "chronometer"
            heading: "Not in this build yet"
            text: title + " isn’t part of this build of Orvella."
        }
    }
}
