import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// The pages of one workspace. The one place that knows which pages exist.
FocusScope {
    id: root

    required property Router router
    required property WorkspaceSession session

    readonly property bool built: router.page === "campaigns" && router.campaign === ""

    Loader {
        id: host
        width: root.width
        height: root.height
        focus: true
        sourceComponent: root.router.offFeature !== "" ? switchedOff : root.built ? campaigns : notBuilt
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
        id: campaigns

        CampaignsPage {
            store: root.session.campaigns
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
            readonly property bool campaign: root.router.page === "campaigns"

            title: campaign ? "Campaign" : root.router.title
            iconName: "chronometer"
            heading: "Not in this build yet"
            text: campaign ? "A campaign’s own page isn’t part of this build of Orvella."
                : title + " isn’t part of this build of Orvella."
            actionText: campaign ? "Back to campaigns" : ""
            onActionRequested: root.router.open("campaigns")
        }
    }
}
