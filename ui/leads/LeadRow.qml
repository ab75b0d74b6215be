import QtQuick
import Orvella.Design
import Orvella.App
import Orvella.Leads

/// A lead in a table.
OrvTableRow {
    id: root

    required property OrvColumn nameColumn
    required property OrvColumn emailColumn
    required property OrvColumn locationColumn
    required property OrvColumn companyColumn
    required property OrvColumn sizeColumn
    required property OrvColumn verifiedColumn

    required property string name
    required property string title
    required property string emailText
    required property string locationText
    required property string companyText
    required property string sizeText
    required property string verifiedWord
    required property string verifiedText

    label: name + ", " + title

    OrvTwoLineCell { column: root.nameColumn; title: root.name; detail: root.title }
    OrvTextCell { column: root.emailColumn; text: root.emailText; color: Theme.text2 }
    OrvTextCell { column: root.locationColumn; text: root.locationText; color: Theme.text2 }
    OrvTextCell { column: root.companyColumn; text: root.companyText }
    OrvTextCell { column: root.sizeColumn; text: root.sizeText; color: Theme.text2 }
    OrvCell {
        column: root.verifiedColumn
        label: root.verifiedText

        VerificationBadge {
            anchors.verticalCenter: parent.verticalCenter
            verification: root.verifiedWord
            text: root.verifiedText
        }
    }
}
