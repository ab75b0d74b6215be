import QtQuick
import Orvella.Design
import Orvella.Campaigns

/// One email being written: its wait, its variants, subject, thread and text.
FocusScope {
    id: root

    required property SequenceEditor editor
    property bool canWrite: true
    property bool previewButton: false

    signal previewRequested()

    /// What the fields show, whatever the editor has come to meanwhile.
    property string variant: ""
    property bool reply: false
    /// Where the person wrote last.
    property EmailField written: body

    function showText() {
        const isOther = variant !== editor.variantKey;
        // What is half composed belongs to the email that it was begun in.
        if (isOther)
            finishComposing();
        variant = editor.variantKey;
        reply = editor.repliesInThread;
        subject.show(reply ? "" : editor.subject, reply ? "" : editor.unspun("subject"));
        body.show(editor.body, editor.unspun("body"));
        if (isOther)
            written = subject.activeFocus ? subject : body;
    }

    function finishComposing() {
        subject.finishComposing();
        body.finishComposing();
    }

    function startWriting() {
        (reply ? body : subject).forceActiveFocus(Qt.OtherFocusReason);
    }

    function showSpun(field: string, text: string) {
        (field === "subject" ? subject : body).replace(text);
    }

    // By hand: a Connections takes no target whose base the QML types do not name.
    Component.onCompleted: {
        editor.textShown.connect(showText);
        editor.textSpun.connect(showSpun);
        showText();
    }
    Component.onDestruction: {
        finishComposing();
        editor.textShown.disconnect(showText);
        editor.textSpun.disconnect(showSpun);
    }

    StepHeader {
        id: header
        width: root.width
        editor: root.editor
        canWrite: root.canWrite
    }

    VariantStrip {
        id: variants
        y: header.height
        width: root.width
        editor: root.editor
        canWrite: root.canWrite
    }

    OrvDivider {
        id: line
        y: variants.y + variants.height
        width: root.width
    }

    Item {
        id: subjectLine
        y: line.y + 1
        width: root.width
        height: 44

        Text {
            id: subjectLabel
            x: 16
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            textFormat: Text.PlainText
            text: "Subject"
            font: Theme.bodyStrong
            color: Theme.text2
            Accessible.ignored: true
        }

        EmailField {
            id: subject
            x: subjectLabel.x + subjectLabel.width + 14
            width: (thread.visible ? thread.x : root.width - 4) - x - 12
            anchors.verticalCenter: parent.verticalCenter
            singleLine: true
            font: Theme.body
            name: "Subject"
            readOnly: !root.canWrite || root.reply
            placeholder: root.reply ? "Re: same thread (leave empty)" : "Subject"
            variables: root.editor.variables
            onEdited: text => root.editor.setSubject(text, root.variant)
            onFinished: body.forceActiveFocus(Qt.TabFocusReason)
            onActiveFocusChanged: if (activeFocus) root.written = subject
        }

        OrvSegments {
            id: thread

            readonly property string help: root.editor.sameThread ? "Replies in the same thread. Click for a new thread."
                                                                  : "Starts a new thread. Click for the same thread."

            // There is nothing before the first email that it could reply to.
            visible: root.editor.place > 0
            anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
            enabled: root.canWrite
            opacity: enabled ? 1 : 0.6
            label: "Thread"
            Accessible.description: help
            options: [{ key: "same", label: "Same thread" }, { key: "new", label: "New thread" }]
            current: root.editor.sameThread ? "same" : "new"
            onChosen: key => root.editor.setSameThread(key === "same")

            OrvTooltip {
                text: thread.help
            }
        }
    }

    OrvDivider {
        id: subjectDivider
        y: subjectLine.y + subjectLine.height
        width: root.width
    }

    EmailField {
        id: body
        y: subjectDivider.y + 1
        width: root.width
        height: bar.y - y
        side: 16
        focus: true
        name: "Email text"
        readOnly: !root.canWrite
        placeholder: "Hi {{firstName}},\n\nType {{ for a variable…"
        variables: root.editor.variables
        onEdited: text => root.editor.setBody(text, root.variant)
        onActiveFocusChanged: if (activeFocus) root.written = body
    }

    FormatBar {
        id: bar
        y: root.height - height
        width: root.width
        editor: root.editor
        field: root.reply ? body : root.written
        canWrite: root.canWrite
        previewButton: root.previewButton
        onPreviewRequested: root.previewRequested()
    }
}
