import QtQuick
import QtQuick.Dialogs

/// The desktop's own save panel. In a file of its own, so that its modules load only when something is saved.
FileDialog {
    id: root

    property var panel: null
    /// The window the panel is over.
    property var overlay: null
    // Where the desktop offers no panel the toolkit draws one into the window, and that one replaces files unasked.
    property bool drawnByToolkit: false

    onVisibleChanged: {
        if (visible)
            drawnByToolkit = overlay !== null && overlay.visible;
    }
    fileMode: FileDialog.SaveFile
    currentFolder: panel ? panel.folder : ""
    currentFile: panel ? panel.suggestion : ""
    nameFilters: panel ? [panel.nameFilter] : []
    defaultSuffix: panel ? panel.suffix : ""
    onAccepted: panel.choose(selectedFile, !drawnByToolkit)
    onRejected: panel.cancel()
}
