import QtQuick.Dialogs

/// The desktop's own save panel. In a file of its own, so that its modules load only when something is saved.
FileDialog {
    id: root

    property var panel: null

    fileMode: FileDialog.SaveFile
    currentFolder: panel ? panel.folder : ""
    currentFile: panel ? panel.suggestion : ""
    nameFilters: panel ? [panel.nameFilter] : []
    defaultSuffix: panel ? panel.suffix : ""
    onAccepted: panel.choose(selectedFile)
    onRejected: panel.cancel()
}
