import QtQuick
import Orvella.App
import Orvella.Rampup

/// The accounts on their roadmaps, or the templates of these, or the archive of templates.
FocusScope {
    id: root

    required property RampupStore store

    Component.onCompleted: store.ensureLoaded()

    PageSwitch {
        anchors.fill: parent
        sourceComponent: !root.store.showTemplates ? accounts : root.store.templates.showArchived ? archive : templates
    }

    Component {
        id: accounts

        RampupAccounts {
            store: root.store
        }
    }

    Component {
        id: templates

        LiveTemplates {
            store: root.store
        }
    }

    Component {
        id: archive

        ArchivedTemplates {
            templates: root.store.templates
        }
    }

    NameFormDialog {
        form: root.store.templates.newTemplate
    }

    NameFormDialog {
        form: root.store.templates.rename
    }

    AddToTemplateDialog {
        adding: root.store.adding
    }

    RoadmapEditorDialog {
        editor: root.store.editor
    }
}
