import QtQuick
import QtQuick.Templates as T
import Orvella.Design
import Orvella.App
import Orvella.Rampup

/// Which accounts are put on a template.
OnDemand {
    id: root

    required property AddToTemplate adding

    shown: adding.form.shown

    sourceComponent: OrvDialog {
        title: root.adding.title
        text: "Each one begins on day 1 today, on this template’s stages."
        confirmText: root.adding.submitLabel
        confirmEnabled: root.adding.canSubmit
        busy: root.adding.form.busy
        error: root.adding.form.error
        initialFocus: search
        onConfirmed: root.adding.submit()
        onCancelled: root.adding.form.cancel()

        SearchField {
            id: search
            width: parent.width
            ofPage: false
            placeholder: "Search accounts"
            text: root.adding.query
            onEdited: text => root.adding.query = text
            onFinished: list.forceActiveFocus(Qt.TabFocusReason)
        }

        Text {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            text: root.adding.note
            font: Theme.body
            color: Theme.text2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        ListView {
            id: list
            visible: count > 0
            width: parent.width
            height: Math.min(contentHeight, 280)
            clip: true
            keyNavigationEnabled: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.adding.rows

            T.ScrollBar.vertical: OrvScrollBar {}
            RowFocus { target: list }

            delegate: OrvCheckbox {
                required property int index
                required property string id
                required property string address
                required property string detail
                required property bool ticked

                width: ListView.view.width
                height: 34
                text: address + " · " + detail
                checked: ticked
                onToggled: root.adding.toggle(id)
                // The arrows go on from where Tab led.
                onActiveFocusChanged: if (activeFocus && InputMode.keyboard) list.currentIndex = index
            }
        }
    }
}
