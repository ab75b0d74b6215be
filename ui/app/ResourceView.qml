import QtQuick
import Orvella.Design
import Orvella.App

/// OrvStateView of a Resource, which knows by it whether it is on the screen.
OrvStateView {
    id: root

    required property Resource resource
    /// The one that was told of this view; another one may take its place.
    property Resource watched: null

    function watch(shown: bool) {
        const next = shown ? resource : null;
        if (next === watched)
            return;
        const before = watched;
        watched = next;
        before?.disappear();
        next?.appear();
    }

    onVisibleChanged: watch(visible)
    onResourceChanged: watch(visible)
    Component.onCompleted: watch(visible)
    Component.onDestruction: watch(false)

    status: {
        switch (resource.state) {
        case Resource.Loading: return "loading";
        case Resource.Empty: return "empty";
        case Resource.Ready: return "ready";
        case Resource.Offline: return "offline";
        default: return "error";
        }
    }
    hasContent: resource.hasContent
    refreshing: resource.refreshing
    errorText: resource.message
}
