import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Campaigns

/// Shows the router's page. The one place that knows which pages exist.
FocusScope {
    id: root

    required property AppModel app

    readonly property Router router: app.router
    readonly property string title: router.title
    readonly property bool featureOff: router.offFeature !== ""
    readonly property bool built: router.page === "campaigns" && router.campaign === ""

    // A page belongs to one workspace: another one gets pages of its own.
    readonly property WorkspaceSession session: app.session

    Loader {
        id: host
        width: root.width
        height: root.height
        focus: true
        sourceComponent: root.featureOff ? switchedOff : root.built && root.session !== null ? campaigns : notBuilt

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
            title: root.title
            iconName: "object-locked"
            heading: title + " is off"
            text: "This workspace has switched it off. An owner or admin can switch it on in the settings."
        }
    }

    Component {
        id: notBuilt

        PlainPage {
            title: root.title
            iconName: "chronometer"
            heading: "Not in this build yet"
            text: title + " isn’t part of this build of Orvella."
        }
    }
}
