import QtQuick

/// Page Up, Page Down, Home and End for what scrolls. To be asked about keys that nobody inside has taken.
QtObject {
    required property Flickable target

    signal scrolled()

    function scrollTo(y: real) {
        const last = Math.max(0, target.contentHeight + target.bottomMargin - target.height);
        target.contentY = target.originY + Math.max(0, Math.min(y - target.originY, last));
    }

    function take(event) {
        if (event.modifiers & ~Qt.KeypadModifier || target.contentHeight <= target.height)
            return;
        const page = Math.max(target.height / 2, target.height - 48);
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_PageUp: scrollTo(target.contentY - page); break;
        case Qt.Key_PageDown: scrollTo(target.contentY + page); break;
        case Qt.Key_Home: scrollTo(target.originY); break;
        case Qt.Key_End: scrollTo(target.originY + target.contentHeight); break;
        default: event.accepted = false;
        }
        if (event.accepted)
            scrolled();
    }
}
