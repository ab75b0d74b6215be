import QtQuick
import Orvella.Design
import Orvella.Rampup

/// Accounts or templates, behind the page's title.
OrvSegments {
    required property RampupStore store

    label: "What is shown"
    options: store.sections
    current: store.showTemplates ? "templates" : "accounts"
    onChosen: key => store.showTemplates = key === "templates"
}
