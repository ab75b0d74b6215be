import QtQuick
import Orvella.Design
import Orvella.Shell

/// Shows the open page. Another one, another record's or another workspace's is made anew.
FocusScope {
    id: root

    required property AppModel app

    readonly property Router router: app.router
    readonly property string title: router.title

    function show() {
        const page = app.openPage;
        // An address that is the old one would make nothing new.
        host.source = "";
        if (page.view !== "")
            host.setSource("qrc:/qt/qml/" + page.view, { store: page.store, focus: true });
        else
            host.sourceComponent = router.offFeature !== "" ? switchedOff : notBuilt;
    }

    Component.onCompleted: show()

    Connections {
        target: root.app.openPage

        function onChanged() {
            root.show();
        }
    }

    Loader {
        id: host
        width: root.width
        height: root.height
        focus: true
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
