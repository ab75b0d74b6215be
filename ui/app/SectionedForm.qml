import QtQuick
import Orvella.Design
import Orvella.App

/// A form of SettingsSections, and beside it, where there is room, the list that leads to them.
FocusScope {
    id: root

    default property alias fields: form.fields
    /// Ticked are those with something unsaved; the keys are the sections' own.
    property alias sections: list.sections
    property alias editable: form.editable
    /// What stands below the form, and how much room that takes.
    property real footRoom: 0
    readonly property real listWidth: width >= 760 ? 200 : 0

    function showWrong(section: Item) {
        form.showWrong(section);
    }

    function sectionOf(key: string): SettingsSection {
        return sectionIn(form, key);
    }

    function sectionIn(item: Item, key: string): SettingsSection {
        for (let i = 0; i < item.children.length; ++i) {
            const section = item.children[i] as SettingsSection;
            const found = section ? (section.key === key ? section : null) : sectionIn(item.children[i], key);
            if (found)
                return found;
        }
        return null;
    }

    /// Shows the section and gives the keyboard to the first of its fields.
    function lead(key: string) {
        const section = sectionOf(key);
        if (!section)
            return;
        form.reveal(section);
        const first = section.nextItemInFocusChain(true);
        for (let at = first; at; at = at.parent)
            if (at === section)
                first.forceActiveFocus(Qt.TabFocusReason);
    }

    Rectangle {
        visible: list.visible
        x: list.width - 1
        width: 1
        height: root.height
        color: Theme.border
    }

    SectionList {
        id: list
        visible: root.listWidth > 0
        width: root.listWidth
        height: root.height
        current: form.sectionInView
        onChosen: key => form.reveal(root.sectionOf(key))
    }

    OrvForm {
        id: form

        /// Of what the person was led to, or else what has been scrolled to the top.
        readonly property string sectionInView: {
            let inView = "";
            for (const entry of root.sections) {
                const section = root.sectionOf(entry.key);
                if (!section)
                    continue;
                for (let at = followed; at; at = at.parent)
                    if (at === section) return entry.key;
                let top = 0;
                for (let at = section as Item; at && at !== form; at = at.parent)
                    top += at.y;
                if (inView === "" || top <= 80) inView = entry.key;
            }
            return inView;
        }

        x: root.listWidth
        width: root.width - x
        height: root.height - root.footRoom
        focus: true
    }
}
