import QtQuick
import Orvella.Design
import Orvella.Leads

/// A lead in a table.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn emailColumn
    required property OrvColumn verifiedColumn
    required property var textColumns
    required property bool canUnlock
    required property string unlockHint

    required property var model
    required property string name
    required property string titleText
    required property bool locked
    required property string emailText
    required property string verifiedWord
    required property string verifiedText

    signal unlockRequested(string key)

    label: titleText === "" ? name : name + ", " + titleText

    OrvTwoLineCell {
        column: root.nameColumn
        title: root.name
        detail: root.titleText
    }

    LeadEmailCell {
        column: root.emailColumn
        name: root.name
        email: root.emailText
        locked: root.locked
        canUnlock: root.canUnlock && !root.busy
        hint: root.unlockHint
        onUnlockRequested: root.unlockRequested(root.key)
    }

    Repeater {
        model: root.textColumns

        OrvTextCell {
            required property OrvColumn modelData
            readonly property bool isHidden: root.locked && modelData.key === "phone"

            column: modelData
            text: isHidden ? "••••••••" : root.model[modelData.key + "Text"] ?? ""
            color: modelData.key === "company" ? Theme.text : Theme.text2
            Accessible.name: modelData.title + ", " + (isHidden ? "locked" : text)
        }
    }

    OrvCell {
        column: root.verifiedColumn
        label: root.verifiedText
        naturalWidth: badge.width

        VerificationBadge {
            id: badge
            anchors.verticalCenter: parent.verticalCenter
            visible: root.verifiedText !== ""
            verification: root.verifiedWord
            text: root.verifiedText
        }
    }
}
