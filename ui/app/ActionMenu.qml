import QtQuick
import QtQml
import Orvella.Design
import Orvella.App

/// What a store says can be done on its page or with one of its records. Not in a file of bound components, as any
/// MenuLoader.
MenuLoader {
    id: root

    required property Store store
    property string title: about === "" ? "Actions" : "Actions for " + about
    // What the menu is about is held by id: rows move while it is open.
    property string record: ""
    property string about: ""
    property list<pageAction> entries

    /// Of the page, under a button.
    function openUnder(button: Item) {
        record = "";
        about = "";
        entries = store.menu();
        openAt(button, true);
    }

    /// Of a record, in its row.
    function openFor(key: string, row: Item, x: real, y: real) {
        record = key;
        about = (row as OrvTableRow)?.label ?? "";
        entries = store.menu(key);
        if ([...entries].some(entry => entry.possible))
            openIn(row, x, y);
    }

    sourceComponent: OrvMenu {
        id: menu
        title: root.title

        Instantiator {
            model: [...root.entries].filter(entry => !entry.danger)
            delegate: entry
            onObjectAdded: (index, object) => menu.insertItem(index, object as Item)
            onObjectRemoved: (index, object) => menu.removeItem(object as Item)
        }

        OrvMenuSeparator {
            visible: [...root.entries].some(entry => entry.danger)
        }

        Instantiator {
            model: [...root.entries].filter(entry => entry.danger)
            delegate: entry
            onObjectAdded: (index, object) => menu.addItem(object as Item)
            onObjectRemoved: (index, object) => menu.removeItem(object as Item)
        }
    }

    Component {
        id: entry

        OrvMenuItem {
            required property pageAction modelData

            enabled: modelData.possible
            text: modelData.title
            detail: modelData.detail
            iconName: modelData.icon
            shortcutText: modelData.keys.replace("+", " ")
            danger: modelData.danger
            onTriggered: root.store.act(modelData.key, root.record)
        }
    }
}
