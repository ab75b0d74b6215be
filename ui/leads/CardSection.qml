import QtQuick
import Orvella.Design

/// A part of a lead's card: labels and values, sets of words, and whatever else stands in it.
Column {
    id: root

    required property string title
    property list<choice> facts
    /// The fact that can be copied, and the one that leads to the web.
    property string copied: ""
    property string link: ""
    property list<string> tagTitles: []
    property var tagSets: []
    /// Says that there is nothing.
    property string emptyText: ""

    signal copyRequested()
    signal linkOpened()

    spacing: 0

    OrvDivider {
        width: parent.width
    }

    Text {
        height: 36
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.title
        font: Theme.smallStrong
        color: Theme.text2
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Repeater {
        model: ChoiceList { options: root.facts }

        CardFact {
            required property choice modelData

            width: root.width
            label: modelData.label
            value: modelData.detail
            copied: modelData.label === root.copied && value !== ""
            link: modelData.label === root.link
            onCopyRequested: root.copyRequested()
            onLinkOpened: root.linkOpened()
        }
    }

    Repeater {
        model: root.tagTitles.length

        Item {
            id: tagLine

            required property int index
            readonly property list<string> words: root.tagSets[index] ?? []

            visible: words.length > 0
            width: root.width
            height: visible ? Math.max(24, tags.height + 4) : 0

            Accessible.role: Accessible.StaticText
            Accessible.name: root.tagTitles[index] + ", " + words.join(", ")

            Text {
                height: 24
                verticalAlignment: Text.AlignVCenter
                textFormat: Text.PlainText
                text: root.tagTitles[tagLine.index]
                font: Theme.body
                color: Theme.text2
                Accessible.ignored: true
            }

            Flow {
                id: tags
                x: 116
                y: 3
                width: parent.width - x
                spacing: 4

                Repeater {
                    model: tagLine.words

                    OrvTag {
                        required property string modelData

                        text: modelData
                    }
                }
            }
        }
    }

    Text {
        visible: text !== ""
        height: 24
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        text: root.emptyText
        font: Theme.body
        color: Theme.text3
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
