import QtQuick
import Orvella.Design
import Orvella.App

/// OrvStateView of a Resource.
OrvStateView {
    required property Resource resource

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
